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
    if (!fileName.isEmpty() && !file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw CannotWrite(file_);
}

void RecordStream::Add(TextView block) {
    if (showsBlocks_ || file_.isOpen()) waiting_ += PrintableText(block);
}

bool RecordStream::Flush() {
    const std::string blocks = std::exchange(waiting_, {});
    if (blocks.empty()) return file_.error() == QFile::NoError;
    if (showsBlocks_) {
        console_.Print(blocks);
        console_.Flush();
    }
    if (file_.isOpen()) file_.write(blocks.data(), static_cast<qint64>(blocks.size()));
    return file_.error() == QFile::NoError;
}

void RecordStream::Finish() {
    if (!Flush()) throw CannotWrite(file_);
}

}  // namespace commtest
