#include "window/guide_key.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMenu>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>

#include "window/cell_editor.h"
#include "window/grid_view.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/record_view.h"
#include "window/sidebar.h"
#include "window/view_bench.h"
#include "window/widget_search.h"

namespace commtest::testing {
namespace {

bool Says(const QWidget& view, const QString& words) {
    const auto labels = view.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(),
                       [&](const QLabel* label) { return label->text() == words; });
}

class GuideKeyTest : public ::testing::Test {
  protected:
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};
    Theme theme{Theme::Choice::Light};

    static std::string Place(GuideKey& key) {
        return key.Window() == nullptr ? "" : key.Window()->View().Place().toStdString();
    }
};

class GuideOfTheWindowTest : public GuideKeyTest {
  protected:
    NativeBench session;
    MainWindow window{session.Form(), theme, settings};

    GuideOfTheWindowTest() {
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
    }

    // The place that is opened from a widget with the focus.
    std::string PlaceOf(QWidget& widget) {
        QTest::keyClick(&widget, Qt::Key_F1);
        const std::string place = Place(window.Guide());
        window.Guide().Window()->close();
        return place;
    }
    void BringPage(int key) { QTest::keyClick(&window, static_cast<Qt::Key>(key), Qt::ControlModifier); }
    QWidget& Focus() { return *QApplication::focusWidget(); }
};

TEST_F(GuideOfTheWindowTest, KeyOpensWhatTellsOfTheFocus) {
    EXPECT_EQ(PlaceOf(*window.findChild<Sidebar*>()), "instrument.md#choose");
    EXPECT_EQ(PlaceOf(*window.findChild<RecordView*>()), "reading.md#record");
    EXPECT_EQ(PlaceOf(window), "index.md");
    BringPage(Qt::Key_1);
    EXPECT_EQ(PlaceOf(Focus()), "reading.md#grid");
    BringPage(Qt::Key_2);
    EXPECT_EQ(PlaceOf(Focus()), "connection.md#settings");
    BringPage(Qt::Key_3);
    EXPECT_EQ(PlaceOf(Focus()), "instrument.md#list");
    BringPage(Qt::Key_4);
    EXPECT_EQ(PlaceOf(Focus()), "recordings.md#replay");
    BringPage(Qt::Key_5);
    EXPECT_EQ(PlaceOf(Focus()), "reading.md#statistics");
    BringPage(Qt::Key_F);
    EXPECT_EQ(PlaceOf(Focus()), "search.md#search");
}

TEST_F(GuideOfTheWindowTest, OneWindowServesTheMainOne) {
    QTest::keyClick(&window, Qt::Key_F1);
    GuideWindow* const first = window.Guide().Window();
    QTest::keyClick(window.findChild<RecordView*>(), Qt::Key_F1);
    EXPECT_EQ(window.Guide().Window(), first);
    EXPECT_TRUE(first->isVisible());
    QTest::keyClick(&first->View(), Qt::Key_Escape);
    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(GuideOfTheWindowTest, BackAndFindWorkByTheirKeys) {
    QTest::keyClick(&window, Qt::Key_F1);
    GuideWindow& guide = *window.Guide().Window();
    QApplication::setActiveWindow(&guide);
    QTest::keyClick(&guide, Qt::Key_F, Qt::ControlModifier);
    auto* words = guide.findChild<QLineEdit*>();
    EXPECT_EQ(QApplication::focusWidget(), words);
    QTest::keyClicks(words, "no such word");
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_TRUE(Says(guide, "没有找到"));
    words->clear();
    QTest::keyClicks(words, "truncate");
    EXPECT_FALSE(Says(guide, "没有找到"));
    QTest::keyClick(words, Qt::Key_Return);
    EXPECT_EQ(Place(window.Guide()), "simulator.md");
    QTest::keyClick(words, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(Place(window.Guide()), "index.md");
    QTest::keyClick(words, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(Place(window.Guide()), "simulator.md");
    QTest::keyClick(words, Qt::Key_Home, Qt::AltModifier);
    EXPECT_EQ(Place(window.Guide()), "index.md");
}

TEST_F(GuideOfTheWindowTest, BoxHasAGuideThatItDoesNotShutOut) {
    QMessageBox box(QMessageBox::NoIcon, "CommTest", "text", QMessageBox::Ok, &window);
    box.open();
    (void)QTest::qWaitForWindowActive(&box);
    QTest::keyClick(&box, Qt::Key_F1);
    QPointer<GuideWindow> guide = window.Guide().Window();
    ASSERT_FALSE(guide.isNull());
    EXPECT_EQ(guide->parentWidget(), &box);
    guide->close();
    EXPECT_TRUE(QTest::qWaitFor([&guide] { return guide.isNull(); }));
    EXPECT_TRUE(box.isVisible());
}

TEST_F(GuideOfTheWindowTest, MenuKeepsItsKeys) {
    QMenu menu(&window);
    menu.addAction("entry");
    menu.popup(window.pos());
    QTest::keyClick(&menu, Qt::Key_F1);
    EXPECT_EQ(window.Guide().Window(), nullptr);
    EXPECT_TRUE(menu.isVisible());
}

TEST_F(GuideOfTheWindowTest, EditorKeepsWhatIsTyped) {
    BringPage(Qt::Key_1);
    QTest::keyClick(&Focus(), Qt::Key_Home, Qt::ControlModifier);
    QTest::keyClick(&Focus(), Qt::Key_End);
    QTest::keyClick(&Focus(), Qt::Key_F2);
    auto* editor = window.findChild<CellEditor*>();
    ASSERT_TRUE(editor->isVisible());
    QTest::keyClicks(editor, "42");
    EXPECT_EQ(PlaceOf(*editor), "writing.md#write");
    EXPECT_TRUE(editor->isVisible());
    EXPECT_EQ(editor->text().toStdString(), "42");
}

TEST_F(GuideOfTheWindowTest, PlaceAndSizeAreRemembered) {
    QTest::keyClick(&window, Qt::Key_F1);
    window.Guide().Window()->resize(900, 500);
    window.Guide().Window()->close();
    GuideWindow later(theme, ":/docs/guide/zh", settings, nullptr);
    EXPECT_EQ(later.size(), QSize(900, 500));
}

// A guide of its own, and a window that says what the test wants.
class GuideEntryTest : public GuideKeyTest {
  protected:
    QMainWindow window;
    QStringList said;

    GuideEntryTest() {
        Write("index.md", "# Index\n");
        Write("messages.md",
              "# Messages\n\n<a name=\"gone\"></a>\n## “… is gone”\n\n<a name=\"full\"></a>\n## “The disk is "
              "full”\n");
    }
    void Write(const QString& name, const char* text) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    std::string PlaceOf(QWidget& widget) {
        GuideKey key(theme, folder.path(), settings, window, [this] { return said; });
        QTest::keyClick(&widget, Qt::Key_F1);
        const std::string place = Place(key);
        delete key.Window();
        return place;
    }
};

TEST_F(GuideEntryTest, WhatABoxSaysIsLookedUp) {
    QMessageBox box(QMessageBox::NoIcon, "CommTest", "Not written", QMessageBox::Ok, &window);
    box.setInformativeText("/tmp/x: The disk is full");
    EXPECT_EQ(PlaceOf(box), "messages.md#full");
    box.setInformativeText("Something else");
    EXPECT_EQ(PlaceOf(box), "messages.md");
}

TEST_F(GuideEntryTest, WhatTheWindowSaysComesBeforeWhatItIs) {
    said = {"Copied", "COM3 is gone"};
    EXPECT_EQ(PlaceOf(window), "messages.md#gone");
    said = {"Copied"};
    EXPECT_EQ(PlaceOf(window), "index.md");
}

}  // namespace
}  // namespace commtest::testing
