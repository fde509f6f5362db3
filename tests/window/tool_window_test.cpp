#include "window/tool_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "commands/toolbar_commands.h"
#include "window/look.h"
#include "window/option_mark.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ToolWindowTest : public ::testing::Test {
  protected:
    ViewBench bench;
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    std::unique_ptr<ToolWindow> window;

    ToolWindowTest() {
        ToolbarMenuCommand(bench.Form(), ToolbarEntry::ToolWindow);
        window = std::make_unique<ToolWindow>(bench.Form(), Tools(), bench.theme, settings);
        window->Follow();
        (void)QTest::qWaitForWindowActive(window.get());
    }

    DataTools& Tools() { return bench.session.Tools(); }

    QLineEdit& Field(const char* accessibleName) { return *FindNamed<QLineEdit>(*window, accessibleName); }
    QPlainTextEdit& Explanation() { return *window->findChild<QPlainTextEdit*>(); }
    QAbstractButton& Button(const char* caption) { return *FindButton(*window, caption); }
    QAbstractButton& CopyButton(const char* name) { return *FindNamed<QAbstractButton>(*window, name); }

    QPushButton& Action() {
        QPushButton* action = nullptr;
        for (auto* button : window->findChildren<QPushButton*>()) {
            if (LookOf(button) == Look::Primary) action = button;
        }
        return *action;
    }

    std::string Shown(const char* field) { return Field(field).text().toStdString(); }

    // As the user does it: all of the old text is typed over.
    void Type(const char* text) {
        Field("输入数据").selectAll();
        QTest::keyClicks(&Field("输入数据"), text);
    }
    void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static std::string Clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

// --- What stands in the window ---

TEST_F(ToolWindowTest, TitleNamesTheVersion) {
    EXPECT_EQ(window->windowTitle().toStdString(), "通讯协议校验码工具 V 1.02.03");
}

TEST_F(ToolWindowTest, EachConversionHasItsTip) {
    const std::pair<const char*, const char*> modes[] = {
        {"数值->自定义浮点数", "TQ流量表中专用格式"},
        {"自定义浮点数->数值", "请输入Ascii格式的8个字符"},
        {"数值->通讯代码", "将数值按不同协议转换成通讯中的代码"},
        {"通讯代码->数值", "将代码按不同协议转换成数值"},
        {"数值->IEEE-754浮点数", "标准浮点数转换"},
        {"IEEE-754浮点数->数值", "标准浮点数转换"},
        {"流量表中的累积值", "在流量表中分高低位累积值的计算"},
        {"计算校验码", "计算校验码"},
    };
    for (const auto& [caption, tip] : modes) {
        ASSERT_NE(FindButton(*window, caption), nullptr) << caption;
        EXPECT_EQ(Button(caption).toolTip().toStdString(), tip) << caption;
    }
}

TEST_F(ToolWindowTest, FieldsHaveTheirCaptions) {
    std::vector<std::string> texts;
    for (const QLabel* label : window->findChildren<QLabel*>()) texts.push_back(label->text().toStdString());
    for (const char* caption : {"输入数据", "数据整理", "输出结果", "仪表名称"}) {
        EXPECT_THAT(texts, ::testing::Contains(caption));
    }
    EXPECT_EQ(Field("数据整理").toolTip().toStdString(), "自动将输入数据转换成标准\\统一的写法");
    EXPECT_EQ(FindNamed<QComboBox>(*window, "仪表名称")->count(), 0);
}

TEST_F(ToolWindowTest, MarksOfOptionsStandUnderTheFields) {
    const int edge = FindNamed<QComboBox>(*window, "仪表名称")->mapTo(window.get(), QPoint()).x();
    EXPECT_EQ(edge, 16);
    EXPECT_EQ(LeftOfMark(Button("数值->自定义浮点数"), *window), edge);
    EXPECT_EQ(LeftOfMark(Button("TQ仪表协议"), *window), edge);
}

TEST_F(ToolWindowTest, HintsStandInTheWindow) {
    std::vector<std::string> texts;
    for (const QLabel* label : window->findChildren<QLabel*>()) texts.push_back(label->text().toStdString());
    for (const char* hint :
         {"1:十六进制数据是以空格或 \\ 符号相隔开,如 40 30 31\\52\\44...,也可与Ascii码混合输入,"
          "如 @ 30 31 R 44 31 37\\0D",
          "2:浮点数 目前仅在TQ智能流量类仪表中出现,用4个字节表示",
          "3:浮点数与数值之间相互转换中存在着很小的误差"}) {
        EXPECT_THAT(texts, ::testing::Contains(hint));
    }
}

TEST_F(ToolWindowTest, ProtocolsAreThoseOfTheCatalogueAndTheRestIsSpare) {
    EXPECT_TRUE(Button("TQ仪表协议").isEnabled());
    EXPECT_TRUE(Button("TQ仪表协议").isChecked());
    EXPECT_TRUE(Button("ModBus-RTU协议-M46T").isEnabled());
    EXPECT_FALSE(Button("备用").isEnabled());
}

TEST_F(ToolWindowTest, ClockStandsInTheStatusBar) {
    std::vector<std::string> texts;
    for (const QLabel* label : window->findChild<QStatusBar*>()->findChildren<QLabel*>()) {
        texts.push_back(label->text().toStdString());
    }
    EXPECT_THAT(texts, ElementsAre("2024-05-06  12:00:00"));
}

TEST_F(ToolWindowTest, SmallestWindowScrollsItsLeftSideAndCutsNothingOff) {
    window->resize(880, 446);
    QTest::qWait(1);
    EXPECT_EQ(window->size(), QSize(880, 446));
    const QRect inside = window->rect();
    for (const QWidget* widget :
         {static_cast<QWidget*>(&Field("输入数据")), static_cast<QWidget*>(&Button("退    出")),
          static_cast<QWidget*>(&Explanation())}) {
        const QRect place(widget->mapTo(window.get(), QPoint()), widget->size());
        EXPECT_TRUE(inside.contains(place));
    }
    EXPECT_GE(Explanation().height(), 100);
    EXPECT_GE(Field("输出结果").width(), 120);
}

// --- What the user does ---

TEST_F(ToolWindowTest, InputIsReadyForTyping) { EXPECT_EQ(QApplication::focusWidget(), &Field("输入数据")); }

TEST_F(ToolWindowTest, EnterInTheInputComputesTheCheckWord) {
    Type("@01RD");
    EXPECT_EQ(Shown("数据整理"), " 40 30 31 52 44");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(ToUtf8(Tools().OutString[1].Value()), "@01RD17\r");
    EXPECT_EQ(Shown("输出结果").substr(0, 7), "@01RD17");
    EXPECT_TRUE(window->isVisible());
}

TEST_F(ToolWindowTest, EnterComputesAlsoBehindAWalkOverTheButtons) {
    for (const char* button : {"计算校验码", "退    出"}) {
        Type("@01RD");
        Action().setFocus();
        if (button != Action().text()) Button(button).setFocus();
        Field("输入数据").setFocus();
        Tools().OutString[1].Set({});
        PressKey(Qt::Key_Return);
        EXPECT_EQ(ToUtf8(Tools().OutString[1].Value()), "@01RD17\r") << button;
        EXPECT_TRUE(window->isVisible()) << button;
    }
}

TEST_F(ToolWindowTest, ClickOnTheActionLeavesTheFocusInTheInput) {
    Type("@01RD");
    QTest::mouseClick(&Action(), Qt::LeftButton);
    EXPECT_EQ(ToUtf8(Tools().OutString[1].Value()), "@01RD17\r");
    EXPECT_EQ(QApplication::focusWidget(), &Field("输入数据"));
}

TEST_F(ToolWindowTest, PastedLineEndsFallAway) {
    QGuiApplication::clipboard()->setText("\t25\r\n");
    Field("输入数据").selectAll();
    Field("输入数据").paste();
    EXPECT_EQ(Shown("输入数据"), "25");
    EXPECT_EQ(ToUtf8(Tools().OutString[0].Value()), "25");
    Field("输入数据").paste();
    EXPECT_EQ(Shown("输入数据"), "2525");
    QGuiApplication::clipboard()->setText("\r\n");
    Field("输入数据").paste();
    EXPECT_EQ(Shown("输入数据"), "2525");
}

TEST_F(ToolWindowTest, ActionButtonIsNamedForTheChosenConversion) {
    Button("IEEE-754浮点数->数值").click();
    EXPECT_EQ(Action().text().toStdString(), "IEEE-754浮点数->数值");
    Type("41C80000");
    Action().click();
    EXPECT_EQ(Shown("输出结果"), "25");
    EXPECT_EQ(Explanation().toPlainText().left(9).toStdString(), "IEEE754浮点");
}

TEST_F(ToolWindowTest, ChosenProtocolDecides) {
    Button("数值->通讯代码").click();
    Type("1234");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(Shown("输出结果"), "D204");
    Button("ModBus-Ascii协议").click();
    Field("输入数据").setFocus();
    PressKey(Qt::Key_Return);
    EXPECT_EQ(Shown("输出结果"), "04D2");
}

TEST_F(ToolWindowTest, RefusalIsABoxAndTheInputStays) {
    Button("自定义浮点数->数值").click();
    Type("XY");
    PressKey(Qt::Key_Return);
    EXPECT_THAT(bench.session.dialogs.Texts(),
                ElementsAre("输入非法数据,本栏必须输入16进制数据,且长度不能超过8位！"));
    EXPECT_EQ(Shown("输入数据"), "000000XY");
}

TEST_F(ToolWindowTest, NormalisedInputIsShownInEitherForm) {
    Type("@\\30\\31R");
    EXPECT_EQ(Shown("数据整理"), " 40 30 31 52");
    Button("AscⅡ码").click();
    EXPECT_EQ(Shown("数据整理"), "@01R");
    Button("十六进制").click();
    EXPECT_EQ(Shown("数据整理"), " 40 30 31 52");
}

TEST_F(ToolWindowTest, ResultAndExplanationAreCopiedAsTheyAre) {
    EXPECT_FALSE(CopyButton("复制输出结果").isEnabled());
    EXPECT_FALSE(CopyButton("复制计算过程").isEnabled());
    Type("@01RD");
    PressKey(Qt::Key_Return);
    CopyButton("复制输出结果").click();
    EXPECT_EQ(Clipboard(), "@01RD17\r");
    Button("数值->通讯代码").click();
    Type("0");
    PressKey(Qt::Key_Return);
    CopyButton("复制计算过程").click();
    EXPECT_EQ(Clipboard(),
              "双字节(原码)转换成数值\r\n\r\n第一步: 高低位对调,即   0000 ---> 0000\r\n\r\n"
              "第二步: 数据从十六进制转换成十进制,就是  0000 ---> 0\r\n\r\n"
              "第三步: 如果该数值大等于 32768,则减去 32768 并乘以 -1 \r\n\r\n");
}

TEST_F(ToolWindowTest, LongResultIsShownFromItsBeginning) {
    Button("自定义浮点数->数值").click();
    Type("1234");
    PressKey(Qt::Key_Return);
    EXPECT_EQ(Shown("输出结果"), "0.00027775764465332");
    EXPECT_EQ(Field("输出结果").cursorPosition(), 0);
}

TEST_F(ToolWindowTest, FieldsThatOnlyShowCannotBeChanged) {
    for (const char* field : {"数据整理", "输出结果"}) EXPECT_TRUE(Field(field).isReadOnly()) << field;
    EXPECT_TRUE(Explanation().isReadOnly());
}

TEST_F(ToolWindowTest, ArrowKeysChooseTheConversion) {
    Button("计算校验码").setFocus();
    PressKey(Qt::Key_Up);
    EXPECT_EQ(Tools().OutMode.Chosen(), 5);
}

TEST_F(ToolWindowTest, TabulatorGoesToTheChosenConversionAlsoWhereItWasNotTheUserWhoChose) {
    Button("数值->通讯代码").setFocus();
    PressKey(Qt::Key_Space);
    Tools().OutMode.Choose(7);
    ASSERT_TRUE(QTest::qWaitFor([this] { return Button("计算校验码").isChecked(); }));
    PressKey(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), &Button("计算校验码"));
}

// --- Closing and opening ---

TEST_F(ToolWindowTest, EscapeClosesIt) {
    PressKey(Qt::Key_Escape);
    EXPECT_FALSE(Tools().Window.Visible());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ToolWindowTest, LeaveButtonClosesIt) {
    Button("退    出").click();
    window->Follow();
    EXPECT_FALSE(Tools().Window.Visible());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ToolWindowTest, FrameClosesIt) {
    window->close();
    EXPECT_FALSE(Tools().Window.Visible());
    EXPECT_FALSE(window->isVisible());
}

TEST_F(ToolWindowTest, OpenedAgainItsInputIsReadyToTypeOver) {
    Type("@01RD");
    PressKey(Qt::Key_Return);
    Button("退    出").click();
    window->Follow();
    ToolbarMenuCommand(bench.Form(), ToolbarEntry::ToolWindow);
    window->Follow();
    EXPECT_EQ(Shown("输入数据"), "@01RD");
    EXPECT_EQ(Field("输入数据").selectedText().toStdString(), "@01RD");
    EXPECT_EQ(window->focusWidget(), &Field("输入数据"));
}

TEST_F(ToolWindowTest, CalledWhileItIsOpenItsInputIsReadyToTypeOver) {
    Type("@01RD");
    Button("计算校验码").setFocus();
    ToolbarMenuCommand(bench.Form(), ToolbarEntry::ToolWindow);
    window->Follow();
    EXPECT_EQ(QApplication::focusWidget(), &Field("输入数据"));
    EXPECT_EQ(Field("输入数据").selectedText().toStdString(), "@01RD");
}

TEST_F(ToolWindowTest, OpenedAgainWithoutProtocolsItOffersNone) {
    Button("ModBus-RTU协议-M46T").click();
    window->close();
    Form_Load(Tools(), {});
    window->Follow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return FindButton(*window, "TQ仪表协议") == nullptr; }));
    EXPECT_FALSE(Button("备用").isEnabled());
    for (const auto* option : window->findChildren<QRadioButton*>()) {
        const bool isProtocol = option->text() == "备用";
        EXPECT_FALSE(isProtocol && (option->isEnabled() || option->isChecked()));
    }
}

TEST_F(ToolWindowTest, PlaceIsRememberedWhileItIsClosed) {
    window->move(101, 100);
    window->resize(930, 555);
    PressKey(Qt::Key_Escape);
    window->move(7, 7);
    window->resize(900, 500);
    ToolbarMenuCommand(bench.Form(), ToolbarEntry::ToolWindow);
    window->Follow();
    EXPECT_EQ(window->pos(), QPoint(101, 100));
    EXPECT_EQ(window->size(), QSize(930, 555));
}

TEST_F(ToolWindowTest, PlaceIsRememberedOverTheEndOfTheProgram) {
    window->move(101, 100);
    window->resize(930, 555);
    window->SaveState();
    window = std::make_unique<ToolWindow>(bench.Form(), Tools(), bench.theme, settings);
    window->Follow();
    EXPECT_EQ(window->pos(), QPoint(101, 100));
    EXPECT_EQ(window->size(), QSize(930, 555));
}

TEST_F(ToolWindowTest, DarkPaletteRedrawsTheCopyIcons) {
    Type("@01RD");
    PressKey(Qt::Key_Return);
    const auto image = [this] { return CopyButton("复制输出结果").icon().pixmap(20).toImage(); };
    const QImage light = image();
    bench.theme.Use(Theme::Choice::Dark);
    EXPECT_NE(light, image());
}

}  // namespace
}  // namespace commtest::testing
