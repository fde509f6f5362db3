#include "cli/recording_transfer.h"

#include <QFile>
#include <cerrno>
#include <istream>

#include "app/recording_addition.h"
#include "app/recording_words.h"
#include "host_qt/path_problem.h"
#include "host_qt/whole_file.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(const QString& name) {
    QFile file(name);
    errno = 0;
    if (!file.open(QIODevice::ReadOnly)) {
        const QString reason = errno == ENOENT && ObstacleTo(PathUse::Reading, name).isEmpty()
                                   ? u"没有这个文件"_s
                                   : ReasonOfFailure(PathUse::Reading, name, errno);
        throw Problem(ExitStatus::NoAccess, u"文件 %1 打不开: %2"_s.arg(name, reason));
    }
    return file.readAll();
}

RecordingAddition AdditionOfFile(const QString& name, const Recordings& recordings) {
    const QByteArray bytes = BytesOf(name);
    try {
        return AdditionOf({bytes.data(), static_cast<std::size_t>(bytes.size())}, recordings);
    } catch (const RecordingFileError& error) {
        const RecordingFault& fault = error.Fault();
        throw Problem(ExitStatus::BadUsage, u"%1 第 %2 行: %3。没有导入任何数据"_s.arg(name)
                                                .arg(fault.line)
                                                .arg(QString::fromStdU16String(WordsOnFault(fault))));
    }
}

}  // namespace

bool IsConfirmed(const Text& change, const Arguments& arguments, Console& console) {
    if (arguments.Has(u"yes")) return true;
    if (!console.Input().isTyped) {
        throw Problem(ExitStatus::BadUsage,
                      QString::fromStdU16String(change) + u"? 没有更改。确实要改请加 --yes"_s);
    }
    console.Tell(change + u"? 输入 y 或 是 表示同意");
    std::string line;
    std::getline(console.Input().lines, line);
    const QString answer = QString::fromStdString(line).trimmed().toLower();
    const bool isYes = answer == u"y" || answer == u"yes" || answer == u"是";
    if (!isYes) console.Tell(Text(u"没有更改"));
    return isYes;
}

std::size_t ExportRecording(const QString& name, const std::vector<RecordedExchange>& exchanges) {
    const QString problem = WriteWhole(name, WrittenRecordingFile({exchanges.front(), exchanges}));
    if (!problem.isEmpty()) {
        throw Problem(ExitStatus::NoAccess, u"文件 %1 写不进去: %2"_s.arg(name, problem));
    }
    return exchanges.size();
}

ExitStatus ImportRecording(const QString& name, const Arguments& arguments, Recordings& recordings,
                           Console& console) {
    const RecordingAddition addition = AdditionOfFile(name, recordings);
    const Text question = u"仪表 \"" + addition.instrument + u"\"、说明 \"" + addition.note + u"\" 下已有 " +
                          WholeText(addition.present.all) + u" 条，再加入 " +
                          WholeText(static_cast<std::int64_t>(addition.pairs.size())) + u" 条";
    if (addition.GoesToAnExistingNote() && !IsConfirmed(question, arguments, console)) {
        return ExitStatus::BadUsage;
    }
    recordings.Add(addition.pairs);
    console.Print(u"已导入 %1 条，%2 条已有\n"_s.arg(addition.pairs.size()).arg(addition.known));
    return ExitStatus::Good;
}

}  // namespace commtest
