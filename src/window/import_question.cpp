#include "window/import_question.h"

#include <algorithm>

#include "commands/toolbar_commands.h"
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
    SetFact(u"文件"_s, u"%1，%2"_s.arg(facts.file, facts.written.toString(u"yyyy-MM-dd HH:mm"_s)));
    QString content = WordsOnSize(facts.instruments, facts.parameters);
    if (findings > 0) content += u"，%1 处问题"_s.arg(GroupedNumber(findings));
    if (facts.instruments == 0) content += u"；文件里没有仪表，导入后目录是空的"_s;
    SetFact(u"内容"_s, content);
    SetFact(u"原目录"_s, WordsOnSize(facts.formerInstruments, facts.formerParameters) +
                             u"；先存为 通讯数据.mdb.bak，保留最近三份"_s);
}

void ImportQuestion::ShowFindings(const QString& file, const ListLook& look) {
    setMinimumWidth(std::max(minimumWidth(), kWithFindings));
    auto* kinds = new FactTable({u"类别"_s, u"处数"_s, u"结果"_s}, this);
    kinds->setAccessibleName(u"问题类别"_s);
    for (const auto& [kind, count] : look.Kinds())
        kinds->AddRow({ToQt(HeadOf(kind)), GroupedNumber(count), ToQt(OutcomeOf(kind))});
    kinds->ShowNumbersIn(1);
    kinds->SetColumnWidths({180, 56});
    kinds->ShowRows(kRowsOfKinds);
    AddContents(kinds);

    const auto quoted = static_cast<int>(look.First().size());
    AddContents(MakeCaption(look.Findings() > quoted ? u"前 %1 处"_s.arg(quoted) : u"%1 处"_s.arg(quoted)));
    auto* findings = new FactTable({u"位置"_s, u"原文"_s, u"说明"_s}, this);
    findings->setAccessibleName(u"问题"_s);
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
        connect(AddWayOut(u"保存全部问题..."_s), &QPushButton::clicked, this, &ImportQuestion::SavingWanted);
    QPushButton* yes = AddAnswer(u"是(&Y)"_s, true);
    QPushButton* no = AddAnswer(u"否(&N)"_s, false);
    connect(yes, &QPushButton::clicked, this, &QDialog::accept);
    connect(no, &QPushButton::clicked, this, &QDialog::reject);
    QPushButton* first = hasReasonToStay ? no : yes;
    first->setDefault(true);
    first->setFocus();
}

}  // namespace commtest
