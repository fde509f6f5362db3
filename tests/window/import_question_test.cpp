#include "window/import_question.h"

#include "catalogue/catalogue_lock.h"
#include "window/list_window_bench.h"
#include "window/list_words.h"
#include "window/spoken_words.h"

namespace commtest::testing {
namespace {

// Findings in lines 3, 4, 6 and 10.
const QStringList kFaulty = {"DEVICE 甲表",
                             "TYPE 11000101",
                             "001 ABCD1 3020 0 RW",
                             "002 报警值 3030 X RW",
                             "003 测量值 3040 0 D",
                             "004 输出值 3040 0 D",
                             "END",
                             "DEVICE 乙表",
                             "TYPE 99000101",
                             "END",
                             "DEVICE END"};

class ImportQuestionTest : public ListWindow {};

TEST_F(ImportQuestionTest, SaysWhatTheListHoldsAndWhatStandsNow) {
    Put("TQ.ini", ListOf(2));
    QFile file(PathOf("TQ.ini"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.setFileTime(QDateTime({2026, 11, 20}, {16, 2}), QFileDevice::FileModificationTime);
    file.close();
    BeginImport();
    const CatalogueSize former = InstrumentCatalogue(Form().outside.store).Size();
    EXPECT_EQ(Read(Question()).toStdString(),
              "确定要重新导入仪表的参数地址表吗？；文件 TQ.ini，2026-11-20 16:02；"
              "内容 2 台仪表，6 个参数；原目录 " +
                  std::to_string(former.instruments) + " 台仪表，" + std::to_string(former.parameters) +
                  " 个参数；先存为 通讯数据.mdb.bak，保留最近三份");
    EXPECT_EQ(Question().findChild<FactTable*>(), nullptr);
    EXPECT_EQ(FindButton(Question(), "保存全部问题..."), nullptr);
}

TEST_F(ImportQuestionTest, CountsFindingsByKindAndQuotesTheFirst) {
    Put("TQ.ini", kFaulty);
    BeginImport();
    const FactTable& kinds = *FindNamed<FactTable>(Question(), "问题类别");
    ASSERT_EQ(kinds.rowCount(), 4);
    EXPECT_EQ(Cell(kinds, 0, 0).toStdString(), "名称以地址开头");
    EXPECT_EQ(Cell(kinds, 1, 0).toStdString(), "小数点不是十六进制数");
    EXPECT_EQ(Cell(kinds, 1, 1).toStdString(), "1");
    EXPECT_EQ(Cell(kinds, 1, 2).toStdString(), "照原样导入，导入后列出名称");
    EXPECT_EQ(Cell(kinds, 2, 0).toStdString(), "地址相同");
    EXPECT_EQ(Cell(kinds, 3, 0).toStdString(), "没有这个协议代码");
    const FactTable& findings = *FindNamed<FactTable>(Question(), "问题");
    ASSERT_EQ(findings.rowCount(), 4);
    EXPECT_EQ(Cell(findings, 1, 0).toStdString(), "TQ.ini:4");
    EXPECT_EQ(Cell(findings, 1, 1).toStdString(), "002 报警值 3030 X RW");
    EXPECT_EQ(Cell(findings, 1, 2).toStdString(), "\"报警值\" 的小数点 \"X\" 不是十六进制数");
    EXPECT_TRUE(Read(Question()).contains("内容 2 台仪表，3 个参数，4 处问题"));
}

TEST_F(ImportQuestionTest, AnswerOfEnterIsNoWhereThereAreFindings) {
    const auto isDefault = [this](const char* caption) {
        return static_cast<QPushButton*>(FindButton(Question(), caption))->isDefault();
    };
    Put("TQ.ini", kFaulty);
    BeginImport();
    EXPECT_TRUE(isDefault("否(&N)"));
    Press(Question(), "否(&N)");
    EXPECT_FALSE(Import().IsUnderWay());
    EXPECT_TRUE(Copies().isEmpty());
    Put("TQ.ini", ListOf(1));
    BeginImport();
    EXPECT_TRUE(isDefault("是(&Y)"));
}

TEST_F(ImportQuestionTest, ListWithoutInstrumentsIsToldAsOne) {
    Put("TQ.ini", {"; nothing yet"});
    BeginImport();
    EXPECT_TRUE(Read(Question()).contains("内容 0 台仪表，0 个参数；文件里没有仪表，导入后目录是空的"));
    EXPECT_TRUE(static_cast<QPushButton*>(FindButton(Question(), "否(&N)"))->isDefault());
}

TEST_F(ImportQuestionTest, FirstTwentyAreQuotedAndAllAreSaved) {
    QStringList lines = {"DEVICE 甲表", "TYPE 11000101"};
    for (int row = 0; row < 30; ++row) lines += QString("%1 值%1 3%2 X RW").arg(row).arg(100 + row * 4);
    Put("TQ.ini", lines << "END"
                        << "DEVICE END");
    BeginImport();
    EXPECT_EQ(FindNamed<FactTable>(Question(), "问题")->rowCount(), 20);
    Import().SaveFindings(scratch.filePath("findings.txt"));
    ASSERT_TRUE(WaitFor([this] { return Notes().Text() == "问题已存入文件"; }));
    QFile file(scratch.filePath("findings.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList saved = QString::fromUtf8(file.readAll()).split("\r\n");
    ASSERT_EQ(saved.size(), 31);
    EXPECT_EQ(saved[29].toStdString(),
              "TQ.ini:32：\"值29\" 的小数点 \"X\" 不是十六进制数；照原样导入，导入后列出名称");
}

TEST_F(ImportQuestionTest, FileOfFindingsThatCannotBeWrittenIsTold) {
    Put("TQ.ini", kFaulty);
    BeginImport();
    Import().SaveFindings(scratch.filePath("no folder/findings.txt"));
    ASSERT_TRUE(WaitFor([this] { return Notes().Text().startsWith("问题没有存入文件："); }));
}

// A list, and what is told of it instead of a question.
class HopelessListTest : public ListWindow {
  protected:
    std::string Told() {
        Tools().Button(2).click();
        EXPECT_TRUE(WaitFor([this] { return !boxes.isEmpty(); }));
        EXPECT_EQ(Find<ImportQuestion>(), nullptr);
        EXPECT_TRUE(Copies().isEmpty());
        EXPECT_EQ(boxes.first().toStdString(), "不能导入，目录不变！");
        return details.first().toStdString();
    }
};

TEST_F(HopelessListTest, MissingFile) { EXPECT_EQ(Told(), "TQ.ini：没有这个文件。请把它放进程序文件夹"); }

TEST_F(HopelessListTest, FileThatEndsInsideABlock) {
    Put("TQ.ini", {"DEVICE 甲表", "TYPE 11000101", "001 测量值 3010 0 D"});
    EXPECT_EQ(Told(), "TQ.ini 第 1 行：文件在一台仪表中结束，没有 END 行。请补上 END 行");
}

TEST_F(HopelessListTest, CodeThatIsNoNumber) {
    Put("TQ.ini", {"DEVICE 甲表", "TYPE XX000101", "END", "DEVICE END"});
    EXPECT_EQ(Told(), "TQ.ini 第 2 行：TYPE 行的编号不以数字开头。请改正编号");
}

TEST_F(HopelessListTest, LineThatNoListHas) {
    Put("TQ.ini", {"DEVICE 甲表", "TYPE 11000101", QString(70'000, 'A'), "END", "DEVICE END"});
    EXPECT_EQ(Told(), "TQ.ini 第 3 行：这一行超过 64 KB。请存为代码页 936 或带标记的 UTF-8 文本");
}

TEST_F(HopelessListTest, CatalogueThatIsNotOpen) {
    Put("TQ.ini", ListOf(1));
    Form().outside.store.Close();
    EXPECT_EQ(Told(), "TQ.ini：数据库没有打开。请结束正在使用目录的其他程序，检查磁盘空间和权限");
}

// Of a server; whoever rewrites it has to end first, and nothing else helps.
TEST(WordsOnListProblem, CatalogueThatAnotherProgramIsRewriting) {
    const ListProblem problem = ListProblem::Of(RewrittenElsewhere(), 0);
    EXPECT_EQ(WordsOn(problem, "TQ.ini").toStdString(),
              "TQ.ini：另一个程序正在改写服务器上的目录，请等它结束后再试");
    const SpokenWords words{*FindFace(u"english")};
    EXPECT_EQ(WordsOn(problem, "TQ.ini").toStdString(),
              "TQ.ini: Another program is rewriting the catalogue on the server, please try again when it "
              "has ended");
}

}  // namespace
}  // namespace commtest::testing
