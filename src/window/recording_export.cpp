#include "window/recording_export.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include "catalogue/recordings.h"
#include "host_qt/whole_file.h"
#include "host_qt/words.h"
#include "replay/recording_file.h"
#include "runtime/runtime_error.h"
#include "window/file_to_write.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t kRecordingGrid = 2;
constexpr int kListedInstrument = 2;
constexpr int kListedNote = 3;

constexpr qsizetype kLongestName = 200;  // bytes

}  // namespace

QString FileNameOfRecording(const Text& instrument, const Text& note) {
    static const QRegularExpression kUnfit(uR"([\x{00}-\x{1F}/\\:*?"<>|])"_s);
    QString name = ToQt(instrument).trimmed() + u' ' + ToQt(note).trimmed();
    name.replace(kUnfit, u"_"_s);
    while (name.toUtf8().size() > kLongestName) name.chop(1);
    if (name.back().isHighSurrogate()) name.chop(1);
    return name + u".jsonl"_s;
}

RecordingExport::RecordingExport(Binder& binder, NoteBar& notes, QWidget& list)
    : QObject(&list), binder_(binder), notes_(notes), list_(list) {}

void RecordingExport::AskForFile(int row) {
    const Grid& grid = binder_.Form().MSHFlexGrid1[kRecordingGrid];
    const Text instrument = grid.Cell(row, kListedInstrument);
    const Text note = grid.Cell(row, kListedNote);
    const QString path =
        AskForFileToWrite(&list_, Words::tr("导出录制"), FileNameOfRecording(instrument, note),
                          Words::tr("录制 (*.jsonl)"), u"jsonl"_s);
    if (!path.isEmpty()) SaveTo(path, instrument, note);
}

void RecordingExport::SaveTo(const QString& path, const Text& instrument, const Text& note) {
    try {
        Save(path, instrument, note);
    } catch (const RuntimeError& error) {
        notes_.Warn(Words::tr("没有导出：%1").arg(ToQt(error.StandardMessage())));
    }
}

void RecordingExport::Save(const QString& path, const Text& instrument, const Text& note) {
    const std::vector<RecordedExchange> exchanges =
        Recordings(binder_.Form().outside.store).Exchanges(instrument, note);
    if (exchanges.empty()) return notes_.Warn(Words::tr("没有导出：列表中的这个录制已不存在"));
    const QString problem = WriteWhole(path, WrittenRecordingFile({exchanges.front(), exchanges}));
    if (!problem.isEmpty()) return notes_.Warn(Words::tr("没有导出：%1，%2").arg(path, problem));
    const QFileInfo saved(path);
    notes_.Ask(
        Words::tr("已导出 %1 条：%2").arg(GroupedNumber(std::ssize(exchanges)), saved.absoluteFilePath()),
        Glyph::Tick, Words::tr("打开文件夹"),
        [folder = saved.absolutePath()] { QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
}

}  // namespace commtest
