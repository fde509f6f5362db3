#include "window/spreadsheet_summary.h"

#include "host_qt/words.h"
#include "window/fact_table.h"
#include "window/pieces.h"
#include "window/spreadsheet_words.h"

namespace commtest {

namespace {

constexpr int kRowsInView = 10;
constexpr int kNameWidth = 220;
constexpr double kSecond = 1000;  // milliseconds

qint64 FailuresOf(const SpreadsheetRun& run) {
    return static_cast<qint64>(run.Ended().size() - run.WrittenCount());
}

QString SentenceOn(const SpreadsheetRun& run) {
    QString words =
        Words::tr("已导出 %1 台，失败 %2 台。")
            .arg(GroupedNumber(static_cast<qint64>(run.WrittenCount())), GroupedNumber(FailuresOf(run)));
    if (run.WasCancelled()) {
        const auto rest = static_cast<qint64>(run.Total() - run.Ended().size());
        words += Words::tr("已取消，其余 %1 台没有导出。").arg(GroupedNumber(rest));
    }
    return words;
}

}  // namespace

SpreadsheetSummary::SpreadsheetSummary(const SpreadsheetRun& run, const QString& folder, qint64 milliseconds,
                                       const Theme& theme, QWidget* window)
    : FactBox(theme, window) {
    const bool hasFailures = FailuresOf(run) > 0;
    Say(hasFailures ? Glyph::Warning : Glyph::Tick, SentenceOn(run));
    AddContents(MakeCaption(
        Words::tr("%1，用时 %2 秒").arg(folder).arg(static_cast<double>(milliseconds) / kSecond, 0, 'f', 0)));
    if (hasFailures) ListFailures(run);
    if (hasFailures)
        connect(AddWayOut(Words::tr("重试失败的")), &QPushButton::clicked, this,
                &SpreadsheetSummary::RetryWanted);
    connect(AddWayOut(Words::tr("打开文件夹")), &QPushButton::clicked, this,
            &SpreadsheetSummary::FolderWanted);
    QPushButton* good = AddAnswer(Words::tr("确定"), true);
    connect(good, &QPushButton::clicked, this, &QDialog::accept);
    good->setDefault(true);
    good->setFocus();
}

void SpreadsheetSummary::ListFailures(const SpreadsheetRun& run) {
    auto* table = new FactTable({Words::tr("仪表"), Words::tr("原因")}, this);
    for (const SpreadsheetRun::Entry& entry : run.Ended()) {
        if (!entry.IsWritten()) table->AddRow({ToQt(entry.instrument), WordsOn(entry)});
    }
    table->SetColumnWidths({kNameWidth});
    table->ShowRows(kRowsInView);
    AddContents(table);
}

}  // namespace commtest
