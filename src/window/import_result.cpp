#include "window/import_result.h"

#include "host/file_names.h"
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
        SetFact(u"出错"_s, u"%1 处小数点不是数，均已照原样存入"_s.arg(GroupedNumber(run.BadParameters())));
    SetFact(u"导入"_s, WordsOnSize(run.Instruments(), run.Parameters()) +
                           u"，用时 %1 秒"_s.arg(static_cast<double>(milliseconds) / 1000, 0, 'f', 1));
    SetFact(u"原目录"_s,
            u"%1 (%2)"_s.arg(ToQt(run.Backup()), MomentOfCopy(run.Backup()).toString(u"HH:mm"_s)));
    ShowExport(run);
    connect(AddWayOut(u"恢复原目录..."_s), &QPushButton::clicked, this, &ImportResult::RestoreWanted);
    QPushButton* good = AddAnswer(u"确定"_s, true);
    connect(good, &QPushButton::clicked, this, &QDialog::accept);
    good->setDefault(true);
    good->setFocus();
}

void ImportResult::ShowExport(const ImportRun& run) {
    const QString name = ToQt(kListCopyFileName);
    if (run.ExportProblem()) {
        SetFact(name, u"没有追加完。"_s + WordsOn(*run.ExportProblem(), name));
    } else if (run.Now() == ImportRun::Stage::Exporting) {
        SetFact(name, u"正在追加"_s);
    } else {
        SetFact(name, u"已追加 %1，现有 %2"_s.arg(WordsOnBytes(run.ExportedBytes()),
                                                  WordsOnBytes(run.ExportSize())));
    }
}

}  // namespace commtest
