#include "cli/record_stream.h"

#include <utility>

#include "cli/printable_text.h"
#include "cli/problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

Problem CannotWrite(const QFile& file) {
    return {ExitStatus::NoAccess,
            u"记录文件 %1 写不进去: %2。请检查 --record"_s.arg(file.fileName(), file.errorString())};
}

}  // namespace

RecordStream::RecordStream(Console& console, bool showsBlocks, const QString& fileName)
    : console_(console), showsBlocks_(showsBlocks), file_(fileName) {
    if (!fileName.isEmpty() && !file_.open(QIODevice::Append | QIODevice::Unbuffered))
        throw CannotWrite(file_);
}

void RecordStream::Add(TextView block) {
    if (showsBlocks_ || file_.isOpen()) waiting_ += PrintableText(block);
}

bool RecordStream::Flush() {
    const std::string blocks = std::exchange(waiting_, {});
    if (blocks.empty()) return FileIsGood();
    if (showsBlocks_) console_.Print(blocks);
    const bool isOut = !showsBlocks_ || console_.Flush();
    WriteToFile(blocks);
    return isOut && FileIsGood();
}

void RecordStream::Finish() {
    Flush();
    if (!FileIsGood()) throw CannotWrite(file_);
}

// What stood in the file goes with the first block, not before there is one.
void RecordStream::WriteToFile(const std::string& blocks) {
    if (!file_.isOpen()) return;
    if (!std::exchange(hasBegun_, true)) file_.resize(0);
    file_.write(blocks.data(), static_cast<qint64>(blocks.size()));
}

bool RecordStream::FileIsGood() const { return file_.error() == QFile::NoError; }

}  // namespace commtest
