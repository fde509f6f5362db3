#include "app/tool_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/operation_menus.h"
#include "commands/toolbar_commands.h"
#include "support/bench_session.h"
#include "support/error_of.h"
#include "support/sqlite_store.h"

namespace commtest {
namespace {

using testing::BenchSession;
using ::testing::Each;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::Happen;
using ::testing::IsEmpty;
using testing::MakeEmptyCatalogue;
using testing::ShownBox;
using ::testing::SizeIs;

void OpenByToolbar(MainForm& form) { ToolbarMenuCommand(form, ToolbarEntry::ToolWindow); }

// A tool over a catalogue of the test's choice.
struct CatalogueBench {
    void AddProtocol(const Text& number, const Text& name, const Text& code) {
        store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度"}, {u"协议规定", number, name, code});
    }

    void Open() { ShowToolWindow(tools, *store); }
    Text ButtonCaption(std::size_t button) const { return tools.DataCrcMode.Captions.at(button); }

    testing::VirtualLine line;
    testing::FakeDialogs dialogs;
    testing::FakeProgram program;
    std::unique_ptr<testing::SqliteStore> store = MakeEmptyCatalogue();
    DataTools tools{dialogs, line, program};
};

// --- The protocols of the catalogue ---

struct NamedProtocol {
    std::string name;
    int code;
};

TEST(ToolWindowOfTheShippedCatalogue, HasAButtonForEachProtocolAndOneToSpare) {
    const std::vector<NamedProtocol> protocols = {{"TQ仪表协议", 11},
                                                  {"TQ仪表协议-定制累加和", 12},
                                                  {"TQ仪表协议-定制异或和", 13},
                                                  {"ModBus-Ascii协议", 21},
                                                  {"ModBus-Ascii协议-定制01", 22},
                                                  {"ModBus-Ascii协议-定制02", 23},
                                                  {"ModBus-RTU协议", 31},
                                                  {"ModBus-RTU协议-定制01", 32},
                                                  {"ModBus-RTU协议-KD700记录仪", 33},
                                                  {"ModBus-RTU协议-TQ记录仪板卡", 34},
                                                  {"ModBus-RTU协议-标准流量表", 35},
                                                  {"TQ特殊仪表协议-NOVAX", 41},
                                                  {"TQ特殊仪表协议-HCT615D", 42},
                                                  {"ModBus-RTU协议-M46T", 51}};
    CatalogueBench bench;
    bench.store = testing::MakeShippedCatalogue();
    bench.Open();
    ASSERT_THAT(bench.tools.ProtocolCodes, SizeIs(14));
    for (std::size_t row = 0; row < protocols.size(); ++row) {
        EXPECT_EQ(ToUtf8(bench.ButtonCaption(row)), protocols[row].name);
        EXPECT_EQ(bench.tools.ProtocolCodes[row], protocols[row].code);
    }
    EXPECT_EQ(ToUtf8(bench.ButtonCaption(14)), "备用");
    EXPECT_EQ(ErrorOf([&] { DataCrcMode_Click(bench.tools, 14); }), 9);
}

TEST(ToolWindow, ProtocolsStandInTheOrderOfTheirNumbersWithTrimmedNames) {
    CatalogueBench bench;
    bench.AddProtocol(u"3", u"丙", u"3");
    bench.AddProtocol(u"1", u" 甲  ", u"31");
    bench.AddProtocol(u"2", u"乙", u"11");
    bench.Open();
    EXPECT_EQ(ToUtf8(bench.ButtonCaption(0)), "甲");
    EXPECT_EQ(ToUtf8(bench.ButtonCaption(1)), "乙");
    EXPECT_EQ(ToUtf8(bench.ButtonCaption(2)), "丙");
    EXPECT_EQ(ToUtf8(bench.ButtonCaption(3)), "备用");
    EXPECT_THAT(bench.tools.ProtocolCodes, ElementsAre(31, 11, 3));
    EXPECT_EQ(bench.tools.ProtocolCode, 31);
}

TEST(ToolWindow, OtherSettingsAreNoProtocols) {
    CatalogueBench bench;
    bench.store->AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度"},
                        {u"数据类型", u"1", u"原码", u"0"});
    bench.AddProtocol(u"2", u"甲", u"31");
    bench.Open();
    EXPECT_THAT(bench.tools.ProtocolCodes, ElementsAre(31));
}

TEST(ToolWindow, EmptyCatalogueLeavesAllButtonsSpare) {
    CatalogueBench bench;
    bench.Open();
    EXPECT_TRUE(bench.tools.Window.Visible());
    EXPECT_THAT(bench.tools.DataCrcMode.Captions, Each(Text(u"备用")));
    EXPECT_THAT(bench.tools.ProtocolCodes, IsEmpty());
}

// --- The ways to open it ---

TEST(ToolWindowOfASession, IsOpenedByTheToolbar) {
    BenchSession bench;
    EXPECT_FALSE(bench.Tools().Window.Visible());
    Happen(bench, OpenByToolbar);
    EXPECT_TRUE(bench.Tools().Window.Visible());
    EXPECT_EQ(ToUtf8(bench.Tools().DataCrcMode.Captions.at(0)), "TQ仪表协议");
    EXPECT_EQ(bench.Tools().CurrentMode, 7);
    EXPECT_EQ(bench.Tools().ProtocolCode, 11);
    EXPECT_EQ(ToUtf8(bench.Tools().Caption.Value()), "通讯协议校验码工具 V 1.02.03");
    EXPECT_EQ(ToUtf8(bench.Tools().StatusBar1.Value()), "2024-05-06  12:00:00");
    EXPECT_EQ(bench.Form().StatusNote.Value().kind, Notice::Kind::None);
}

struct ToolEntry {
    int menu;
    int entry;
};

TEST(ToolWindowOfASession, IsOpenedByTheMenusOfTheGrid) {
    for (const ToolEntry& one : {ToolEntry{1, 12}, {2, 11}, {3, 9}, {4, 9}}) {
        BenchSession bench;
        Happen(bench, [&](MainForm& form) { ChooseMenuEntry(form, one.menu, one.entry); });
        EXPECT_TRUE(bench.Tools().Window.Visible()) << one.menu;
    }
}

TEST(ToolWindowOfASession, IsNotOpenedByItsEntryInTheMenuOfTheFlowMeter) {
    BenchSession bench;
    Happen(bench, [](MainForm& form) { ChooseMenuEntry(form, 4, 10); });
    EXPECT_FALSE(bench.Tools().Window.Visible());
}

TEST(ToolWindowOfASession, OpenedTwiceIsTheSameOneAndMovesToTheFront) {
    BenchSession bench;
    Happen(bench, OpenByToolbar);
    DataTools& tools = bench.Tools();
    tools.OutMode.Choose(2);
    tools.DataCrcMode.Choose(3);
    tools.OutString[0].Set(u"1234");
    const auto generation = tools.Window.Generation();
    Happen(bench, OpenByToolbar);
    EXPECT_EQ(&bench.Tools(), &tools);
    EXPECT_GT(tools.Window.Generation(), generation);
    EXPECT_TRUE(tools.Window.Visible());
    EXPECT_EQ(tools.CurrentMode, 2);
    EXPECT_EQ(tools.ProtocolCode, 21);
    EXPECT_EQ(ToUtf8(tools.OutString[0].Value()), "1234");
}

TEST(ToolWindowOfASession, OpenedAfterItWasClosedReadsTheCatalogueAnew) {
    BenchSession bench;
    Happen(bench, OpenByToolbar);
    DataTools& tools = bench.Tools();
    tools.OutMode.Choose(2);
    Command1_Click(tools, 1);
    EXPECT_FALSE(tools.Window.Visible());
    bench.store->Execute(u"UPDATE 表格_设置 SET 字段 = '甲', 宽度 = 33 WHERE 使用 = '协议规定' AND 列号 = 1");
    Happen(bench, OpenByToolbar);
    EXPECT_TRUE(tools.Window.Visible());
    EXPECT_EQ(tools.CurrentMode, 7);
    EXPECT_EQ(ToUtf8(tools.DataCrcMode.Captions.at(0)), "甲");
    EXPECT_EQ(tools.ProtocolCode, 33);
}

// --- A catalogue that cannot be read ---

TEST(ToolWindowWithoutACatalogue, OpensWithoutProtocolsAndShowsTheError) {
    BenchSession bench;
    bench.store->Execute(u"DROP TABLE 表格_设置");
    Happen(bench, OpenByToolbar);
    EXPECT_TRUE(bench.Tools().Window.Visible());
    EXPECT_THAT(bench.Tools().DataCrcMode.Captions, Each(Text(u"备用")));
    EXPECT_EQ(bench.Tools().CurrentMode, 7);
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(bench.dialogs.Shown[0].kind, ShownBox::Kind::Error);
    EXPECT_EQ(bench.dialogs.Shown[0].number, 3146);
}

TEST(ToolWindowWithoutACatalogue, ConvertsAllTheSame) {
    BenchSession bench;
    bench.store->Close();
    Happen(bench, OpenByToolbar);
    DataTools& tools = bench.Tools();
    tools.OutMode.Choose(4);
    tools.OutString[0].Set(u"10");
    Command1_Click(tools, 0);
    EXPECT_EQ(ToUtf8(tools.OutString[1].Value()), "41200000");
}

TEST(ToolWindowWithoutACatalogue, ShowsItsErrorOnlyWhereItIsLoaded) {
    BenchSession bench;
    bench.store->Close();
    Happen(bench, OpenByToolbar);
    Happen(bench, OpenByToolbar);
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(1));
}

TEST(ToolWindowWithoutACatalogue, HasNoProtocolsEitherWhereACodeIsNoNumber) {
    CatalogueBench bench;
    bench.AddProtocol(u"1", u"甲", u"31");
    bench.AddProtocol(u"2", u"乙", u"no number");
    EXPECT_EQ(ErrorOf([&] { bench.Open(); }), 13);
    EXPECT_TRUE(bench.tools.Window.Visible());
    EXPECT_THAT(bench.tools.ProtocolCodes, IsEmpty());
}

TEST(ToolWindowWithoutACatalogue, HasNoProtocolsEitherWhereACodeIsBeyondAShortNumber) {
    CatalogueBench bench;
    bench.AddProtocol(u"1", u"甲", u"32768");
    EXPECT_EQ(ErrorOf([&] { bench.Open(); }), 6);
    EXPECT_TRUE(bench.tools.Window.Visible());
    EXPECT_EQ(bench.tools.ProtocolCode, 0);
}

}  // namespace
}  // namespace commtest
