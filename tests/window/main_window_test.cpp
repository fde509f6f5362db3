#include "window/main_window.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/grid_view.h"
#include "window/record_view.h"
#include "window/search_panel.h"
#include "window/sidebar.h"
#include "window/tab_row.h"
#include "window/tool_bar.h"
#include "window/view_bench.h"

namespace commtest::testing {
namespace {

class MainWindowTest : public ::testing::Test {
  protected:
    NativeBench session;
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    std::unique_ptr<MainWindow> window;

    MainWindowTest() { Open(); }

    void Open() {
        window = std::make_unique<MainWindow>(Form(), theme, settings);
        theme.Dress();
        window->show();
        (void)QTest::qWaitForWindowActive(window.get());
    }

    MainForm& Form() { return session.Form(); }

    template <typename Part>
    Part& The() {
        return *window->findChild<Part*>();
    }

    QWidget* Page() { return window->findChild<QStackedWidget*>()->currentWidget(); }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window.get(), key, modifiers);
    }
};

TEST_F(MainWindowTest, CaptionIsTheSessions) {
    Form().Caption.Set(u"衡岫TQ系列仪联演示软件(TQ通讯协议) V 1.02.03");
    window->Views().Look();
    EXPECT_EQ(window->windowTitle().toStdString(), "衡岫TQ系列仪联演示软件(TQ通讯协议) V 1.02.03");
}

TEST_F(MainWindowTest, StartKeyStartsAndStops) {
    Press(Qt::Key_F5);
    EXPECT_TRUE(Form().IsRunning());
    Press(Qt::Key_F5);
    EXPECT_FALSE(Form().IsRunning());
}

TEST_F(MainWindowTest, StartKeyLeavesAPortField) {
    Press(Qt::Key_2, Qt::ControlModifier);
    auto* baud = Page()->findChildren<QComboBox*>().at(1);
    baud->lineEdit()->setFocus();
    baud->lineEdit()->selectAll();
    QTest::keyClicks(baud->lineEdit(), "19200");
    Press(Qt::Key_F5);
    EXPECT_EQ(ToUtf8(session.line.Settings()), "19200,N,8,1");
}

TEST_F(MainWindowTest, NumberKeysBringThePages) {
    for (int tab = 4; tab >= 0; --tab) {
        Press(static_cast<Qt::Key>(Qt::Key_1 + tab), Qt::ControlModifier);
        EXPECT_EQ(Form().SSTab2.Chosen(), tab);
        EXPECT_EQ(window->findChild<QStackedWidget*>()->currentIndex(), tab);
        EXPECT_EQ(The<TabRow>().Tabs().currentIndex(), tab);
    }
}

TEST_F(MainWindowTest, SearchKeyShowsThePanelAndEscapeInsideHidesIt) {
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(The<SearchPanel>().isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(The<SearchPanel>().isVisible());
    EXPECT_FALSE(Form().FindFrame.Visible());
}

TEST_F(MainWindowTest, LayoutKeyWalksThroughTheThreeLayouts) {
    const auto shown = [this] {  // 1 the record, 2 the conversion texts
        int sum = 0;
        for (RecordView* pane : The<CommunicationPage>().findChildren<RecordView*>())
            sum += !pane->isVisible() ? 0 : pane == &The<CommunicationPage>().Record() ? 1 : 2;
        return sum;
    };
    Press(Qt::Key_F8);
    EXPECT_EQ(shown(), 3);
    Press(Qt::Key_F8);
    EXPECT_EQ(shown(), 2);
    Press(Qt::Key_F8);
    EXPECT_EQ(shown(), 1);
}

TEST_F(MainWindowTest, AreaKeyGoesRound) {
    const auto isIn = [](QWidget& area) {
        return area.isAncestorOf(QApplication::focusWidget()) || &area == QApplication::focusWidget();
    };
    The<CommunicationPage>().Parameters().setFocus();
    Press(Qt::Key_F6);
    EXPECT_TRUE(isIn(The<CommunicationStrip>()));
    Press(Qt::Key_F6);
    EXPECT_TRUE(isIn(The<CommunicationPage>().Record()));
    Press(Qt::Key_F6);
    EXPECT_TRUE(isIn(The<Sidebar>()));
    Press(Qt::Key_F6);
    EXPECT_TRUE(isIn(The<CommunicationPage>().Parameters()));
    Press(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_TRUE(isIn(The<Sidebar>()));
}

TEST_F(MainWindowTest, ChosenInstrumentTakesTheFocusToTheGrid) {
    The<CommunicationPage>().Record().setFocus();
    session.Choose(kNativeProtocol, u"仪表甲");
    RunIfSet(Form().ConMeterName[0].Click);
    window->Views().Look();
    EXPECT_EQ(QApplication::focusWidget(), &The<CommunicationPage>().Parameters());
}

TEST_F(MainWindowTest, ToolboxEntryBringsTheMenuOfTheGrid) {
    bool cameUp = false;
    QTimer::singleShot(50, [&cameUp] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        cameUp = menu != nullptr && menu->actions().value(0)->text() == u"读取动态数据(RD)";
        if (menu != nullptr) menu->close();
    });
    The<ToolBar>().Button(10).menu()->actions().at(1)->trigger();
    QTest::qWait(100);
    EXPECT_TRUE(cameUp);
}

TEST_F(MainWindowTest, NarrowWindowFoldsTheSidebarAway) {
    EXPECT_TRUE(The<Sidebar>().isVisible());
    window->resize(1000, 600);
    EXPECT_FALSE(The<Sidebar>().isVisible());
    Press(Qt::Key_F9);
    EXPECT_TRUE(The<Sidebar>().isVisible());
    window->resize(1366, 700);
    EXPECT_TRUE(The<Sidebar>().isVisible());
}

TEST_F(MainWindowTest, SidebarLiesOverAVeryNarrowWindowUntilAClickOutside) {
    window->resize(900, 500);
    QApplication::processEvents();
    const int width = The<CommunicationPage>().width();
    Press(Qt::Key_F9);
    EXPECT_TRUE(The<Sidebar>().isVisible());
    EXPECT_EQ(The<CommunicationPage>().width(), width);
    QTest::mouseClick(The<CommunicationPage>().Record().viewport(), Qt::LeftButton);
    EXPECT_FALSE(The<Sidebar>().isVisible());
    window->resize(1366, 700);
    EXPECT_TRUE(The<Sidebar>().isVisible());
    EXPECT_EQ(The<Sidebar>().parentWidget()->metaObject()->className(), std::string("QSplitter"));
}

TEST_F(MainWindowTest, WindowFitsItsSmallestSize) {
    window->resize(880, 446);
    EXPECT_EQ(window->size(), QSize(880, 446));
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(window->size(), QSize(880, 446));
}

TEST_F(MainWindowTest, PaletteKeySwitchesAndIsRemembered) {
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(theme.IsDark());
    EXPECT_EQ(settings.value("Window/Theme").toString(), "dark");
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(theme.IsDark());
}

TEST_F(MainWindowTest, SizeSplittersAndColumnsAreRemembered) {
    window->resize(1200, 650);
    The<CommunicationPage>().Parameters().setColumnWidth(1, 300);
    Press(Qt::Key_F9);
    window->SaveState();
    Open();
    EXPECT_EQ(window->size(), QSize(1200, 650));
    EXPECT_FALSE(The<Sidebar>().isVisible());
    EXPECT_EQ(The<CommunicationPage>().Parameters().columnWidth(1), 300);
}

TEST_F(MainWindowTest, WindowMayGoWhileItsEditorHasTheFocus) {
    Form().InputText.SetVisible(true);
    Form().Focus.Ask(FocusWish::Target::CellEditor);
    window->Views().Look();
    window.reset();
    EXPECT_FALSE(Form().InputText.Visible());
}

TEST_F(MainWindowTest, ClosingTheWindowLeaves) {
    window->close();
    EXPECT_TRUE(session.program.HasEnded);
    EXPECT_TRUE(session.settings.Values.contains(u"SoftSeting"));
}

TEST_F(MainWindowTest, EveryFieldHasAnAccessibleName) {
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        const bool isField = qobject_cast<QComboBox*>(widget) != nullptr ||
                             qobject_cast<QAbstractSpinBox*>(widget) != nullptr ||
                             qobject_cast<QTableView*>(widget) != nullptr ||
                             qobject_cast<QPlainTextEdit*>(widget) != nullptr;
        if (isField) {
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
        }
    }
}

}  // namespace
}  // namespace commtest::testing
