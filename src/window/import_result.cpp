#include "window/import_result.h"

#include "host/file_names.h"
#include "host_qt/words.h"
#include "window/catalogue_copy.h"
#include "window/list_words.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

ImportResult::ImportResult(const ImportRun& run, qint64 milliseconds, const Theme& theme, QWidget* window)
    : FactBox(theme, window) {
    const bool isGood = run.BadParameters() == 0;
    Say(isGood ? Glyph::Tick : Glyph::Warning, ToQt(run.Message()));
    if (!isGood)
        SetFact(Words::tr("出错"),
                Words::tr("%1 处小数点不是数，均已照原样存入").arg(GroupedNumber(run.BadParameters())));
    SetFact(Words::tr("导入"),
            WordsOnSize(run.Instruments(), run.Parameters()) +
                Words::tr("，用时 %1 秒").arg(static_cast<double>(milliseconds) / 1000, 0, 'f', 1));
    SetFact(Words::tr("原目录"),
            u"%1 (%2)"_s.arg(ToQt(run.Backup()), MomentOfCopy(run.Backup()).toString(u"HH:mm"_s)));
    ShowExport(run);
    connect(AddWayOut(Words::tr("恢复原目录...")), &QPushButton::clicked, this, &ImportResult::RestoreWanted);
    QPushButton* good = AddAnswer(Words::tr("确定"), true);
    connect(good, &QPushButton::clicked, this, &QDialog::accept);
    good->setDefault(true);
    good->setFocus();
}

void ImportResult::ShowExport(const ImportRun& run) {
    const QString name = ToQt(kListCopyFileName);
    if (run.ExportProblem()) {
        SetFact(name, Words::tr("没有追加完。") + WordsOn(*run.ExportProblem(), name));
    } else if (run.Now() == ImportRun::Stage::Exporting) {
        SetFact(name, Words::tr("正在追加"));
    } else {
        SetFact(name, Words::tr("已追加 %1，现有 %2")
                          .arg(WordsOnBytes(run.ExportedBytes()), WordsOnBytes(run.ExportSize())));
    }
}

}  // namespace commtest
