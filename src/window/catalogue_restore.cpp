#include "window/catalogue_restore.h"

#include "catalogue/catalogue_backup.h"
#include "catalogue/chip_records.h"
#include "catalogue/instrument_selection.h"
#include "host/dialogs.h"
#include "host_qt/words.h"
#include "window/fact_box.h"
#include "window/fact_table.h"
#include "window/list_words.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString WordsOnMoment(const CatalogueCopy& copy) { return copy.moment.toString(u"yyyy-MM-dd HH:mm:ss"_s); }

FactTable* MakeTable(const QList<CatalogueCopy>& copies, QWidget* parent) {
    auto* table = new FactTable({Words::tr("备份时间"), Words::tr("大小"), Words::tr("内容")}, parent);
    table->setAccessibleName(Words::tr("备份"));
    for (const CatalogueCopy& copy : copies) {
        table->AddRow({WordsOnMoment(copy), WordsOnBytes(copy.bytes),
                       WordsOnSize(copy.size.instruments, copy.size.parameters)});
    }
    table->ShowCodesIn(0);
    table->ShowNumbersIn(1);
    table->SetColumnWidths({160, 80});
    table->ShowRows(static_cast<int>(copies.size()));
    table->selectRow(0);
    return table;
}

}  // namespace

CatalogueRestore::CatalogueRestore(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* window)
    : QObject(window), binder_(binder), theme_(theme), notes_(notes), window_(window) {}

void CatalogueRestore::Ask() {
    const Outside& outside = binder_.Form().outside;
    const QList<CatalogueCopy> copies = CopiesOfCatalogue(outside);
    if (copies.isEmpty()) {
        outside.dialogs.ShowMessage(Words::tr("没有可以恢复的备份！").toStdU16String(),
                                    Words::tr("每次导入之前自动备份目录，保留最近三份。").toStdU16String());
        return;
    }
    auto* box = new FactBox(theme_, window_);
    box->Say(Glyph::Unknown, Words::tr("确定要恢复原目录吗？"));
    box->SetFact(Words::tr("恢复"), Words::tr("仪表和参数；其它数据不变"));
    binder_.Event([&] {
        const CatalogueSize present = InstrumentCatalogue(outside.store).Size();
        box->SetFact(Words::tr("现目录"),
                     WordsOnSize(present.instruments, present.parameters) + Words::tr("；先存为备份"));
    });
    FactTable* table = MakeTable(copies, box);
    box->AddContents(table);
    QPushButton* yes = box->AddAnswer(Words::tr("是(&Y)"), true);
    QPushButton* no = box->AddAnswer(Words::tr("否(&N)"), false);
    connect(yes, &QPushButton::clicked, box, &QDialog::accept);
    connect(no, &QPushButton::clicked, box, &QDialog::reject);
    connect(box, &QDialog::accepted, this,
            [this, copies, table] { Restore(copies[std::max(table->currentRow(), 0)]); });
    no->setDefault(true);
    no->setFocus();
    box->open();
}

void CatalogueRestore::Restore(const CatalogueCopy& copy) {
    MainForm& form = binder_.Form();
    try {
        const Text former =
            BackUpCatalogue(form.outside.store, form.outside.files, form.outside.clock.Now(), copy.name);
        RestoreCatalogue(form.outside.store, form.outside.files, copy.name);
        notes_.Say(Words::tr("已恢复 %1 的目录，恢复之前的存为 %2").arg(WordsOnMoment(copy), ToQt(former)));
    } catch (const RuntimeError& error) {
        const QString reason = WordsOn(ListProblem::Of(error, 0), ToQt(copy.name));
        form.outside.dialogs.ShowMessage(Words::tr("没有恢复，目录不变！").toStdU16String(),
                                         reason.toStdU16String());
        return;
    }
    binder_.Event([&form] { LoadCatalogueAnew(form); });
}

void LoadCatalogueAnew(MainForm& form) {
    LoadInstrumentsAnew(form);
    if (form.SSTab2.Click) form.SSTab2.Click(form.SSTab2.Chosen());
    if (form.ConCpuDataShow.Visible()) ShowChipFilePanel(form);
}

}  // namespace commtest
