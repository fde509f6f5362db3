#include "cli/recording_transfer.h"

#include <QFile>
#include <QSaveFile>
#include <istream>
#include <set>

#include "replay/recording_file.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

using Kind = RecordingFault::Kind;

QString WordsOn(const RecordingFault& fault) {
    const QString member = QString::fromStdString(fault.member);
    switch (fault.kind) {
        case Kind::NotUtf8: return u"不是 UTF-8 文字"_s;
        case Kind::NoHeader: return u"没有文件头"_s;
        case Kind::MissingMember: return u"缺少 \"%1\""_s.arg(member);
        case Kind::UnknownMember: return u"不认识 \"%1\""_s.arg(member);
        case Kind::TwiceTheMember: return u"\"%1\" 出现两次"_s.arg(member);
        case Kind::WrongValue: return u"\"%1\" 的值不对"_s.arg(member);
        case Kind::OtherFormat: return u"文件格式的版本不是 1"_s;
        default: return u"不是一个 JSON 对象"_s;
    }
}

RecordingFile ReadFile(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        throw Problem(ExitStatus::NoAccess, u"文件 %1 打不开: %2"_s.arg(name, file.errorString()));
    }
    try {
        return ReadRecordingFile(file.readAll().toStdString());
    } catch (const RecordingFileError& error) {
        throw Problem(ExitStatus::BadUsage, u"%1 第 %2 行: %3。没有导入任何数据"_s.arg(name)
                                                .arg(error.Fault().line)
                                                .arg(WordsOn(error.Fault())));
    }
}

// Notes are kept in capitals. One row a reply, as in a capture.
std::vector<RecordedExchange> NewPairs(const RecordingFile& recording,
                                       const std::vector<RecordedExchange>& known, const Text& note) {
    std::set<HexText> replies;
    for (const RecordedExchange& one : known) replies.insert(one.reply);
    std::vector<RecordedExchange> pairs;
    for (RecordedExchange one : recording.exchanges) {
        one.note = note;
        if (replies.insert(one.reply).second) pairs.push_back(std::move(one));
    }
    return pairs;
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
    const std::string bytes = WrittenRecordingFile({exchanges.front(), exchanges});
    QSaveFile file(name);
    const bool isOpen = file.open(QIODevice::WriteOnly);
    if (isOpen) file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    if (!isOpen || !file.commit()) {
        throw Problem(ExitStatus::NoAccess, u"文件 %1 写不进去: %2"_s.arg(name, file.errorString()));
    }
    return exchanges.size();
}

ExitStatus ImportRecording(const QString& name, const Arguments& arguments, Recordings& recordings,
                           Console& console) {
    const RecordingFile recording = ReadFile(name);
    const Text& instrument = recording.head.instrument;
    const Text note = UCase(recording.head.note);
    const std::vector<RecordedExchange> known = recordings.Exchanges(instrument, note);
    const std::vector<RecordedExchange> pairs = NewPairs(recording, known, note);
    const Text question = u"仪表 \"" + instrument + u"\"、说明 \"" + note + u"\" 下已有 " +
                          WholeText(static_cast<std::int64_t>(known.size())) + u" 条，再加入 " +
                          WholeText(static_cast<std::int64_t>(pairs.size())) + u" 条";
    const bool isAddition = !known.empty() && !pairs.empty();
    if (isAddition && !IsConfirmed(question, arguments, console)) return ExitStatus::BadUsage;
    recordings.Add(pairs);
    console.Print(
        u"已导入 %1 条，%2 条已有\n"_s.arg(pairs.size()).arg(recording.exchanges.size() - pairs.size()));
    return ExitStatus::Good;
}

}  // namespace commtest
