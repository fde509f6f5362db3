#include "window/spreadsheet_export.h"

#include <gmock/gmock.h>

#include "catalogue/instrument_selection.h"

#include "support/fake_spreadsheets.h"
#include "window/list_window_bench.h"
#include "window/sidebar.h"
#include "window/spreadsheet_summary.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Kind = SpreadsheetResult::Kind;

const std::string kFirstResult = "HX-D10智能数字显示控制仪参数地址表.xls";

// The program with the shipped catalogue: the protocol that is chosen has four instruments.
class SpreadsheetExportTest : public ListWindow {
  protected:
    SpreadsheetExportTest() {
        Export().Use(engine);
        Export().Opener = [this](const QString& path) {
            opened.push_back(QFileInfo(path).fileName().toStdString());
            return opens;
        };
    }
    ~SpreadsheetExportTest() override { program.reset(); }

    SpreadsheetExport& Export() { return Window().Lists().Spreadsheets(); }
    SpreadsheetSummary& Summary() { return *Find<SpreadsheetSummary>(); }
    void ExportCurrent() { Tools().Entry(ToolbarEntry::ExportCurrentTable)->trigger(); }
    void ExportAll() { Tools().Entry(ToolbarEntry::ExportAllTables)->trigger(); }
    void Look() { Window().Views().Look(); }

    std::vector<std::string> Ordered() const {
        std::vector<std::string> names;
        for (const SpreadsheetOrder& order : engine.Orders)
            names.push_back(QFileInfo(QString::fromStdU16String(order.resultPath)).fileName().toStdString());
        return names;
    }

    // Ends all that are under way or begin by then; that of one instrument in another way.
    void EndAll(const Text& other = u"none", const SpreadsheetResult& result = {}) {
        while (!engine.UnderWay().empty()) {
            const std::size_t order = engine.UnderWay().front();
            const bool isOther = engine.Orders[order].resultPath.find(other) != Text::npos;
            engine.End(order, isOther ? result : SpreadsheetResult{});
        }
    }

    std::string BandWords() {
        QStringList words;
        for (const QLabel* label : Band().findChildren<QLabel*>()) {
            if (label->isVisible()) words += label->text();
        }
        return words.join(u'|').toStdString();
    }
    std::string Sentence() { return Summary().accessibleName().toStdString(); }

    FakeSpreadsheetEngine engine;
    bool opens = true;
    std::vector<std::string> opened;
};

// --- The current table ---

TEST_F(SpreadsheetExportTest, CurrentTableIsWrittenAndShown) {
    ExportCurrent();
    EXPECT_THAT(Ordered(), ElementsAre(kFirstResult));
    EXPECT_THAT(opened, IsEmpty());
    EXPECT_THAT(engine.Orders[0].cells, Contains(SheetCell{2, 0, u"通讯协议:  TQ仪表协议"}));
    EXPECT_TRUE(QString::fromStdU16String(engine.Orders[0].resultPath)
                    .endsWith("/folder/自动保存通讯记录/" + QString::fromStdString(kFirstResult)));
    EXPECT_TRUE(QString::fromStdU16String(engine.Orders[0].templatePath).endsWith("/folder/参数地址表.xls"));
    EndAll();
    EXPECT_THAT(opened, ElementsAre(kFirstResult));
    EXPECT_EQ(Notes().Text().toStdString(), "已导出 " + kFirstResult);
    EXPECT_EQ(Find<SpreadsheetSummary>(), nullptr);
}

TEST_F(SpreadsheetExportTest, FolderIsShownWhereNoProgramOpensTheFile) {
    opens = false;
    ExportCurrent();
    EndAll();
    EXPECT_THAT(opened, ElementsAre(kFirstResult, "自动保存通讯记录"));
    EXPECT_EQ(Notes().Text().toStdString(), "已导出 " + kFirstResult + "，没有可以打开它的程序");
}

TEST_F(SpreadsheetExportTest, CurrentTableIsLoadedAnew) {
    Form().ParameterGrid().SetCell(6, 9, u"25.0");
    ExportCurrent();
    EXPECT_EQ(ToUtf8(Form().ParameterGrid().Cell(6, 9)), "");
    EXPECT_THAT(engine.Orders[0].cells, Contains(SheetCell{11, 9, u""}));
}

TEST_F(SpreadsheetExportTest, ShortExportShowsNoBand) {
    ExportCurrent();
    Look();
    EXPECT_FALSE(Band().isVisible());
    EXPECT_TRUE(Tools().Button(8).isEnabled());
    EndAll();
}

TEST_F(SpreadsheetExportTest, WithoutAProgramThatWritesItTheBoxSaysWhatToInstall) {
    ExportCurrent();
    EndAll(u"HX-D10", {.kind = Kind::NoEngine});
    EXPECT_EQ(boxes.join('|').toStdString(), "当前参数地址表没有导出！");
    EXPECT_THAT(details.join('|').toStdString(), HasSubstr("请安装 gnumeric"));
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(SpreadsheetExportTest, FailureOfTheCurrentTableIsALine) {
    ExportCurrent();
    EndAll(u"HX-D10", {Kind::OpenElsewhere, u"/x/.~lock.a.xls#"});
    EXPECT_EQ(details.join('|').toStdString(), "文件已在别处打开，原文件未动");
    EXPECT_THAT(opened, IsEmpty());
}

// --- All tables ---

TEST_F(SpreadsheetExportTest, AllTablesAreWrittenAndASummaryTellsIt) {
    ExportAll();
    EndAll();
    EXPECT_THAT(Ordered(),
                ElementsAre(kFirstResult, "HX-F40智能流量积算仪参数地址表.xls",
                            "HX-P20智能PID调节仪参数地址表.xls", "HX-R16十六路巡检仪参数地址表.xls"));
    EXPECT_EQ(Sentence(), "已导出 4 台，失败 0 台。");
    EXPECT_EQ(FindButton(Summary(), "重试失败的"), nullptr);
    EXPECT_THAT(opened, IsEmpty());
    Press(Summary(), "打开文件夹");
    EXPECT_THAT(opened, ElementsAre("自动保存通讯记录"));
    Press(Summary(), "确定");
    EXPECT_EQ(Find<SpreadsheetSummary>(), nullptr);
}

TEST_F(SpreadsheetExportTest, OneProgressNamesTheTableAndCounts) {
    ExportAll();
    Look();
    EXPECT_TRUE(Band().isVisible());
    EXPECT_EQ(Band().accessibleName().toStdString(), "导出进度");
    EXPECT_THAT(BandWords(), HasSubstr("正在导出|HX-F40智能流量积算仪参数地址表.xls|已写|0 / 4|失败|0"));
    engine.End(0);
    engine.End(1, {Kind::NoRoom, u"/x"});
    Look();
    EXPECT_THAT(BandWords(),
                HasSubstr("正在导出|HX-R16十六路巡检仪参数地址表.xls|已写|1 / 4|失败|1|剩余约|"));
    EXPECT_EQ(Band().findChild<QProgressBar*>()->accessibleName().toStdString(), "正在导出，50%");
    EndAll();
    EXPECT_FALSE(Band().isVisible());
}

TEST_F(SpreadsheetExportTest, SessionDoesNotNoticeThatAllAreExported) {
    Form().ParameterGrid().SetCell(6, 9, u"25.0");
    Form().CurrentRow = 9;
    Tools().Button(toolbar::kStartStop).click();
    ExportAll();
    EXPECT_TRUE(Form().IsRunning());
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), "HX-D10智能数字显示控制仪");
    EXPECT_EQ(ToUtf8(Form().ParameterGrid().Cell(6, 9)), "25.0");
    EXPECT_EQ(Form().CurrentRow, 9);
    EXPECT_THAT(engine.Orders[0].cells, Contains(SheetCell{11, 9, u""}));
    EndAll();
    EXPECT_TRUE(Form().IsRunning());
}

TEST_F(SpreadsheetExportTest, ChoicesAndOtherWorkOnTheCatalogueWaitForIt) {
    ExportAll();
    const std::string reason = "正在导出参数地址表，完成或取消后可用";
    for (QWidget* choice : Window().LeftSide().Choices()) EXPECT_FALSE(choice->isEnabled());
    for (const int button : {2, 8}) {
        EXPECT_FALSE(Tools().Button(button).isEnabled()) << button;
        EXPECT_EQ(Tools().Button(button).toolTip().toStdString(), reason) << button;
    }
    EXPECT_TRUE(Tools().Button(toolbar::kStartStop).isEnabled());
    EndAll();
    EXPECT_TRUE(Tools().Button(8).isEnabled());
}

TEST_F(SpreadsheetExportTest, SummaryNamesThoseThatFailedAndWhy) {
    ExportAll();
    EndAll(u"HX-F40", {Kind::OpenElsewhere, u"/x/.~lock"});
    EXPECT_EQ(Sentence(), "已导出 3 台，失败 1 台。");
    const auto& table = *Summary().findChild<FactTable*>();
    ASSERT_EQ(table.rowCount(), 1);
    EXPECT_EQ(Cell(table, 0, 0).toStdString(), "HX-F40智能流量积算仪");
    EXPECT_EQ(Cell(table, 0, 1).toStdString(), "文件已在别处打开，原文件未动");
}

TEST_F(SpreadsheetExportTest, RetryTakesThoseThatFailedAlone) {
    ExportAll();
    EndAll(u"HX-F40", {Kind::NoRoom, u"/x"});
    EXPECT_EQ(Cell(*Summary().findChild<FactTable*>(), 0, 1).toStdString(), "磁盘空间不足，原文件未动");
    engine.Orders.clear();
    Press(Summary(), "重试失败的");
    EXPECT_THAT(Ordered(), ElementsAre("HX-F40智能流量积算仪参数地址表.xls"));
    EndAll();
    EXPECT_EQ(Sentence(), "已导出 1 台，失败 0 台。");
}

TEST_F(SpreadsheetExportTest, TableThatCannotBeLoadedIsAmongTheFailures) {
    Form().outside.store.Execute(u"Update 仪表_名称 Set 仪表名称 = 'O''K' Where 仪表名称 Like 'HX-F40%'");
    Form().SSTab2.Choose(2);
    LoadInstrumentsAnew(Form());
    ExportAll();
    EndAll();
    EXPECT_EQ(Sentence(), "已导出 3 台，失败 1 台。");
    EXPECT_EQ(Cell(*Summary().findChild<FactTable*>(), 0, 0).toStdString(), "O'K");
    EXPECT_THAT(Cell(*Summary().findChild<FactTable*>(), 0, 1).toStdString(),
                HasSubstr("参数没有读出：数据库错误"));
}

TEST_F(SpreadsheetExportTest, WhatHindersAllOfThemIsSaidOnce) {
    ExportAll();
    engine.End(0, {Kind::NoSheet, u"参数表"});
    EXPECT_EQ(boxes.join('|').toStdString(), "参数地址表没有导出！");
    EXPECT_THAT(details.join('|').toStdString(), HasSubstr("模板中没有工作表 \"参数表\""));
    EXPECT_EQ(Find<SpreadsheetSummary>(), nullptr);
    EXPECT_FALSE(Band().isVisible());
    EXPECT_TRUE(Tools().Button(8).isEnabled());
}

TEST_F(SpreadsheetExportTest, ProtocolWithoutInstrumentsHasNothingToExport) {
    Form().InstrumentList().Clear();
    ExportAll();
    EXPECT_EQ(Notes().Text().toStdString(), "这个协议没有仪表，没有可导出的参数地址表");
    EXPECT_FALSE(Band().isVisible());
}

// --- Its end ahead of time ---

TEST_F(SpreadsheetExportTest, CancelAsksAndKeepsWhatIsWritten) {
    ExportAll();
    engine.End(0);
    Press(Band(), "取消");
    EXPECT_EQ(boxes.join('|').toStdString(), "确定要取消导出吗？已写好的文件保留。");
    EXPECT_THAT(engine.UnderWay(), IsEmpty());
    EXPECT_EQ(Sentence(), "已导出 1 台，失败 0 台。已取消，其余 3 台没有导出。");
    EXPECT_FALSE(Band().isVisible());
}

TEST_F(SpreadsheetExportTest, EscapeInTheBandAsksAndNoGoesOn) {
    answer = "否(&N)";
    ExportAll();
    QTest::keyClick(&Band(), Qt::Key_Escape);
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_EQ(engine.UnderWay().size(), 2U);
    EndAll();
    EXPECT_EQ(Sentence(), "已导出 4 台，失败 0 台。");
}

TEST_F(SpreadsheetExportTest, ExportThatEndsWhileTheUserIsAskedIsSummarisedBehindTheAnswer) {
    atBox = [this] {
        EndAll();
        EXPECT_EQ(Find<SpreadsheetSummary>(), nullptr);
    };
    ExportAll();
    Press(Band(), "取消");
    EXPECT_EQ(Sentence(), "已导出 4 台，失败 0 台。");
}

TEST_F(SpreadsheetExportTest, LeavingAsksWhileItGoesOn) {
    answer = "否(&N)";
    ExportAll();
    EXPECT_FALSE(Window().Lists().MayLeave());
    EXPECT_EQ(boxes.join('|').toStdString(), "正在导出参数地址表，现在退出则其余的不再导出。确定要退出吗？");
    EXPECT_EQ(engine.UnderWay().size(), 2U);
    answer = "是(&Y)";
    EXPECT_TRUE(Window().Lists().MayLeave());
    EXPECT_THAT(engine.UnderWay(), IsEmpty());
    EXPECT_TRUE(Window().Lists().MayLeave());
}

}  // namespace
}  // namespace commtest::testing
