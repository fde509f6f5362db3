#include "window/main_window.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTest>

#include "window/catalogue_page.h"
#include "window/communication_page.h"
#include "window/communication_strip.h"
#include "window/error_page.h"
#include "window/filter_box.h"
#include "window/grid_view.h"
#include "window/hit_list.h"
#include "window/paint_watch.h"
#include "window/port_page.h"
#include "window/record_view.h"
#include "window/search_panel.h"
#include "window/sidebar.h"
#include "window/tab_row.h"
#include "window/text_spin_box.h"
#include "window/tool_bar.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

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
        window->show();
        (void)QTest::qWaitForWindowActive(window.get());
    }

    MainForm& Form() { return session.Form(); }

    template <typename Part>
    Part& The() {
        return *window->findChild<Part*>();
    }

    QComboBox* BaudRate() {
        Press(Qt::Key_2, Qt::ControlModifier);
        return Page()->findChildren<QComboBox*>().at(1);
    }
    QSplitter& Columns() { return *The<Sidebar>().window()->findChild<QSplitter*>(); }

    // What the user does with the wheel goes on to the widgets below where it is not taken.
    static void TurnWheelOver(QWidget& widget) {
        const QPointF place = widget.rect().center();
        QWheelEvent event(place, widget.mapToGlobal(place), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(&widget, &event);
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

TEST_F(MainWindowTest, ALookWithoutChangesPaintsNothing) {
    // The picture after the first look is painted before anything is heard.
    window->Views().Look();
    PaintWhatIsDue(*window);
    std::vector<std::unique_ptr<PaintWatch>> watches;
    for (QWidget* widget : window->findChildren<QWidget*>())
        watches.push_back(std::make_unique<PaintWatch>(*widget));
    window->Views().Look();
    PaintWhatIsDue(*window);
    for (const auto& watch : watches)
        EXPECT_TRUE(watch->Painted().isEmpty()) << watch->parent()->metaObject()->className();
}

TEST_F(MainWindowTest, StartKeyStartsAndStops) {
    Press(Qt::Key_F5);
    EXPECT_TRUE(Form().IsRunning());
    Press(Qt::Key_F5);
    EXPECT_FALSE(Form().IsRunning());
}

TEST_F(MainWindowTest, StartKeyLeavesAPortField) {
    QComboBox* baud = BaudRate();
    baud->setFocus();
    baud->lineEdit()->selectAll();
    QTest::keyClicks(baud->lineEdit(), "19200");
    Press(Qt::Key_F5);
    EXPECT_EQ(ToUtf8(session.line.Settings()), "19200,N,8,1");
}

TEST_F(MainWindowTest, StartKeyTakesThePortFieldInHandOverOnce) {
    QComboBox* baud = BaudRate();
    baud->setFocus();
    session.settings.Values.clear();
    Press(Qt::Key_F5);
    EXPECT_EQ(ToUtf8(session.settings.Values.at(u"CommPort")), "9600,N,8,1 COM1");
    EXPECT_EQ(QApplication::focusWidget(), &The<TabRow>().Tabs());
    session.settings.Values.clear();
    Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_FALSE(session.settings.Values.contains(u"CommPort"));
}

TEST_F(MainWindowTest, NumberKeysBringThePages) {
    for (int tab = 4; tab >= 0; --tab) {
        Press(static_cast<Qt::Key>(Qt::Key_1 + tab), Qt::ControlModifier);
        EXPECT_EQ(Form().SSTab2.Chosen(), tab);
        EXPECT_EQ(window->findChild<QStackedWidget*>()->currentIndex(), tab);
        EXPECT_EQ(The<TabRow>().Tabs().currentIndex(), tab);
    }
}

TEST_F(MainWindowTest, WhatIsNotSeenAtTheStartIsMadeWhenItIsSeen) {
    EXPECT_EQ(window->findChild<PortPage*>(), nullptr);
    EXPECT_EQ(window->findChild<ErrorPage*>(), nullptr);
    EXPECT_EQ(window->findChild<CataloguePage*>(), nullptr);
    EXPECT_EQ(FindNamed<GridView>(*window, QString::fromUtf8("演示数据")), nullptr);
    EXPECT_EQ(window->findChild<SearchPanel*>(), nullptr);
    EXPECT_EQ(window->findChild<HitList*>(), nullptr);
    Press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_TRUE(The<PortPage>().isVisible());
    Press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_TRUE(The<CataloguePage>().isVisible());
    Press(Qt::Key_4, Qt::ControlModifier);
    EXPECT_TRUE(FindNamed<GridView>(*window, QString::fromUtf8("演示数据"))->isVisible());
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_TRUE(The<ErrorPage>().isVisible());
    Press(Qt::Key_1, Qt::ControlModifier);
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(The<SearchPanel>().isVisible());
    EXPECT_TRUE(The<HitList>().isVisible());
}

TEST_F(MainWindowTest, ListThatIsMadeLateHasTheRowsOfTheOthers) {
    for (const int height : {700, 900}) {
        Open();
        window->resize(1366, height);
        Press(Qt::Key_3, Qt::ControlModifier);
        const auto rowHeight = [](GridView& grid) { return grid.verticalHeader()->defaultSectionSize(); };
        EXPECT_EQ(rowHeight(The<CataloguePage>().List()), height < 800 ? 22 : 24);
        EXPECT_EQ(rowHeight(The<CommunicationPage>().Parameters()), height < 800 ? 22 : 24);
    }
}

TEST_F(MainWindowTest, SearchKeyShowsThePanelAndEscapeInsideHidesIt) {
    Press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(The<SearchPanel>().isVisible());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(The<SearchPanel>().isVisible());
    EXPECT_FALSE(Form().FindFrame.Visible());
}

TEST_F(MainWindowTest, FilterKeyGoesIntoTheFilterOfThePage) {
    FilterBox& filter = The<TabRow>().Filter();
    GridView& grid = The<CommunicationPage>().Parameters();
    Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), &filter.Field());
    QTest::keyClicks(&filter.Field(), "0200");
    EXPECT_EQ(grid.Filter().Words().toStdString(), "0200");
    Press(Qt::Key_2, Qt::ControlModifier);
    EXPECT_FALSE(filter.isVisible());
    Press(Qt::Key_3, Qt::ControlModifier);
    EXPECT_TRUE(filter.isVisible());
    EXPECT_EQ(filter.Field().text().toStdString(), "");
    Press(Qt::Key_1, Qt::ControlModifier);
    EXPECT_EQ(filter.Field().text().toStdString(), "0200");
}

TEST_F(MainWindowTest, FilterIsFoldedInANarrowWindow) {
    const FilterBox& filter = The<TabRow>().Filter();
    window->resize(1366, 700);
    QApplication::processEvents();
    EXPECT_TRUE(The<TabRow>().Filter().Field().isVisible());
    window->resize(880, 700);
    QApplication::processEvents();
    EXPECT_FALSE(The<TabRow>().Filter().Field().isVisible());
    EXPECT_EQ(filter.width(), 28);
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

TEST_F(MainWindowTest, SidebarThatLayOverTheMainAreaGetsItsWidthBack) {
    Columns().setSizes({310, 1051});
    QApplication::processEvents();
    ASSERT_EQ(The<Sidebar>().width(), 310);
    window->resize(900, 500);
    Press(Qt::Key_F9);
    Press(Qt::Key_F9);
    Press(Qt::Key_F9);
    EXPECT_EQ(The<Sidebar>().width(), 264);
    window->resize(1366, 700);
    QApplication::processEvents();
    EXPECT_EQ(The<Sidebar>().width(), 310);
}

TEST_F(MainWindowTest, SidebarComesBackAsWideAsItWasHidden) {
    Columns().setSizes({310, 1051});
    Press(Qt::Key_F9);
    QApplication::processEvents();
    Press(Qt::Key_F9);
    QApplication::processEvents();
    EXPECT_EQ(The<Sidebar>().width(), 310);
}

TEST_F(MainWindowTest, SidebarThatWasDraggedShutComesBack) {
    Columns().setSizes({0, 1361});
    QApplication::processEvents();
    Press(Qt::Key_F9);
    QApplication::processEvents();
    EXPECT_EQ(The<Sidebar>().width(), 264);
    EXPECT_EQ(The<Sidebar>().x(), 0);
    Columns().setSizes({0, 1361});
    The<TabRow>().SidebarButton().click();
    EXPECT_EQ(Columns().sizes().at(0), 264);
    Press(Qt::Key_F9);
    EXPECT_FALSE(The<Sidebar>().isVisible());
}

TEST_F(MainWindowTest, SidebarThatWasDraggedShutComesBackInAWindowThatWasSmall) {
    Columns().setSizes({0, 1361});
    window->SaveState();
    Open();
    window->resize(900, 500);
    Press(Qt::Key_F9);
    EXPECT_EQ(The<Sidebar>().width(), 264);
    window->resize(1366, 700);
    Press(Qt::Key_F9);
    QApplication::processEvents();
    EXPECT_EQ(Columns().sizes().at(0), 264);
}

TEST_F(MainWindowTest, SidebarThatWasDraggedShutComesBackInANarrowWindow) {
    Columns().setSizes({0, 1361});
    window->resize(1000, 600);
    QApplication::processEvents();
    Press(Qt::Key_F9);
    QApplication::processEvents();
    EXPECT_EQ(The<Sidebar>().width(), 264);
    EXPECT_EQ(Columns().sizes().at(0), 264);
}

TEST_F(MainWindowTest, WheelOverAFieldWithoutTheFocusChangesNothing) {
    Press(Qt::Key_F, Qt::ControlModifier);
    for (const Qt::Key page : {Qt::Key_1, Qt::Key_2}) {
        Press(page, Qt::ControlModifier);
        QWidget* focus = &The<TabRow>().Tabs();
        focus->setFocus();
        int fields = 0;
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            auto* list = qobject_cast<QComboBox*>(widget);
            auto* number = qobject_cast<TextSpinBox*>(widget);
            if (!widget->isVisible() || !widget->isEnabled() || (list == nullptr && number == nullptr))
                continue;
            ++fields;
            const auto text = [=] { return list != nullptr ? list->currentText() : number->Text(); };
            const QString before = text();
            TurnWheelOver(*widget);
            if (auto* edit = widget->findChild<QLineEdit*>()) TurnWheelOver(*edit);
            EXPECT_EQ(text(), before) << widget->accessibleName().toStdString();
            EXPECT_EQ(QApplication::focusWidget(), focus) << widget->accessibleName().toStdString();
        }
        EXPECT_GE(fields, 8);
    }
}

TEST_F(MainWindowTest, WheelOverAFieldWithoutTheFocusScrollsTheSidebar) {
    window->resize(1200, 446);
    QApplication::processEvents();
    QScrollBar& bar = *The<Sidebar>().verticalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    TurnWheelOver(*The<Sidebar>().findChild<QComboBox*>());
    EXPECT_GT(bar.value(), 0);
}

TEST_F(MainWindowTest, WheelOverTheFieldWithTheFocusStepsIt) {
    auto* address = The<Sidebar>().findChild<TextSpinBox*>();
    address->setFocus();
    address->SetText("7");
    TurnWheelOver(*address);
    EXPECT_EQ(address->Text(), "6");
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

// The lists get their columns when their page is shown.
TEST_F(MainWindowTest, ColumnsOfTheListsAreRememberedEvenWhereTheirPageIsNotShown) {
    const auto list = [this](int index) {
        return FindNamed<GridView>(
            *window, index == 1 ? QString::fromUtf8("仪表清单") : QString::fromUtf8("演示数据"));
    };
    const auto fill = [this](int rows, int cols) {
        for (const std::size_t index : {1u, 2u}) Form().MSHFlexGrid1[index].SetSize(rows, cols);
        window->Views().Look();
    };
    const auto showLists = [this] {
        Press(Qt::Key_3, Qt::ControlModifier);
        Press(Qt::Key_4, Qt::ControlModifier);
    };
    fill(4, 6);
    showLists();
    list(1)->setColumnWidth(2, 301);
    list(2)->setColumnWidth(3, 302);
    window->SaveState();
    fill(0, 0);
    Open();
    window->SaveState();
    Open();
    fill(4, 6);
    showLists();
    EXPECT_EQ(list(1)->columnWidth(2), 301);
    EXPECT_EQ(list(2)->columnWidth(3), 302);
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

TEST_F(MainWindowTest, ClosingTheWindowTakesOverThePortFieldInHand) {
    QComboBox* baud = BaudRate();
    baud->setFocus();
    baud->lineEdit()->selectAll();
    QTest::keyClicks(baud->lineEdit(), "19200");
    window->close();
    EXPECT_EQ(ToUtf8(session.settings.Values[u"CommPort"]), "19200,N,8,1 COM1");
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
