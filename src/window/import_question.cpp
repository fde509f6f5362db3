#include "window/import_question.h"

#include <algorithm>

#include "commands/toolbar_commands.h"
#include "host_qt/words.h"
#include "window/core_words.h"
#include "window/fact_table.h"
#include "window/list_words.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRowsOfKinds = 6;
constexpr int kRowsOfFindings = 10;
constexpr int kWithFindings = 720;  // width

}  // namespace

ImportQuestion::ImportQuestion(const Facts& facts, const ListLook& look, const Theme& theme, QWidget* window)
    : FactBox(theme, window) {
    Say(Glyph::Information, ToQt(kImportQuestion));
    ShowFacts(facts, look.Findings());
    if (look.Findings() > 0) ShowFindings(facts.file, look);
    AddButtons(look.Findings() > 0 || facts.instruments == 0);
}

void ImportQuestion::ShowFacts(const Facts& facts, int findings) {
    SetFact(Words::tr("文件"),
            Words::tr("%1，%2").arg(facts.file, facts.written.toString(u"yyyy-MM-dd HH:mm"_s)));
    QString content = WordsOnSize(facts.instruments, facts.parameters);
    if (findings > 0) content += Words::tr("，%1 处问题").arg(GroupedNumber(findings));
    if (facts.instruments == 0) content += Words::tr("；文件里没有仪表，导入后目录是空的");
    SetFact(Words::tr("内容"), content);
    SetFact(Words::tr("原目录"), WordsOnSize(facts.formerInstruments, facts.formerParameters) +
                                     Words::tr("；先存为 通讯数据.mdb.bak，保留最近三份"));
}

void ImportQuestion::ShowFindings(const QString& file, const ListLook& look) {
    setMinimumWidth(std::max(minimumWidth(), kWithFindings));
    auto* kinds = new FactTable({Words::tr("类别"), Words::tr("处数"), Words::tr("结果")}, this);
    kinds->setAccessibleName(Words::tr("问题类别"));
    for (const auto& [kind, count] : look.Kinds())
        kinds->AddRow({Translated(HeadOf(kind)), GroupedNumber(count), Translated(OutcomeOf(kind))});
    kinds->ShowNumbersIn(1);
    kinds->SetColumnWidths({180, 56});
    kinds->ShowRows(kRowsOfKinds);
    AddContents(kinds);

    const auto quoted = static_cast<int>(look.First().size());
    AddContents(MakeCaption(look.Findings() > quoted ? Words::tr("前 %1 处").arg(quoted)
                                                     : Words::tr("%1 处").arg(quoted)));
    auto* findings = new FactTable({Words::tr("位置"), Words::tr("原文"), Words::tr("说明")}, this);
    findings->setAccessibleName(Words::tr("问题"));
    for (const ListLook::Quoted& each : look.First()) {
        findings->AddRow({u"%1:%2"_s.arg(file).arg(each.finding.line), ToQt(each.line).simplified(),
                          WordsOn(each.finding)});
    }
    findings->ShowCodesIn(0);
    findings->ShowCodesIn(1);
    findings->SetColumnWidths({112, 224});
    findings->ShowRows(kRowsOfFindings);
    AddContents(findings);
}

// Where there is a reason to stay, that is the answer of Enter.
void ImportQuestion::AddButtons(bool hasReasonToStay) {
    if (hasReasonToStay && findChild<FactTable*>() != nullptr)
        connect(AddWayOut(Words::tr("保存全部问题...")), &QPushButton::clicked, this,
                &ImportQuestion::SavingWanted);
    QPushButton* yes = AddAnswer(Words::tr("是(&Y)"), true);
    QPushButton* no = AddAnswer(Words::tr("否(&N)"), false);
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton* first = hasReasonToStay ? no : yes;
    first->setDefault(true);
    first->setFocus();
}

}  // namespace commtest
