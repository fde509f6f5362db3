#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include "host_qt/catalogue_store.h"
#include "host_qt/path_problem.h"
#include "session/events.h"
#include "window/error_words.h"
#include "window/filter_box.h"
#include "window/follow_tick.h"
#include "window/help_view.h"
#include "window/list_words.h"
#include "window/main_window.h"
#include "window/note_bar.h"
#include "window/spoken_words.h"
#include "window/state_line.h"
#include "window/view_bench.h"
#include "window/widget_search.h"
#include "window/write_words.h"

namespace commtest::testing {
namespace {

// What the program says beyond the texts of the face, while it speaks English.
class EnglishWords : public ::testing::Test {
  protected:
    SpokenWords words{*FindFace(u"english")};
    NativeBench session{kEnglishFace};
    Theme theme{Theme::Choice::Light};
    QTemporaryDir folder;
    QSettings settings{folder.filePath("settings.ini"), QSettings::IniFormat};

    MainForm& Form() { return session.Form(); }
};

class EnglishWordsOfTheWindow : public EnglishWords {
  protected:
    MainWindow window{session.Form(), theme, settings};

    EnglishWordsOfTheWindow() {
        window.resize(1366, 700);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        Look();
    }

    void Look() {
        window.Views().Look();
        QApplication::processEvents();
    }
    std::string State() { return window.State().accessibleDescription().toStdString(); }
};

TEST_F(EnglishWordsOfTheWindow, FilterAndFollow) {
    EXPECT_EQ(window.findChild<FilterBox*>()->Field().placeholderText().toStdString(),
              "Filter name, address, attribute");
    EXPECT_EQ(window.findChild<FollowTick*>()->text().toStdString(), "Follow");
}

TEST_F(EnglishWordsOfTheWindow, StateLineTellsTheOperationInTheWordsOfItsEntry) {
    EXPECT_EQ(window.State().accessibleName().toStdString(), "Communication state");
    EXPECT_EQ(State(), "Operation 读取动/静态数据(RR/RD)");
}

TEST_F(EnglishWordsOfTheWindow, StateLineTellsAStopByTheUser) {
    window.Views().Event([this] { session.Start(); });
    session.AnswersEachFrame(frames::kDynamicReply);
    session.line.RunUntil(session.line.Time() + 400);
    window.Views().Event([this] { session.Stop(); });
    Look();
    EXPECT_EQ(State(), "Stopped by Stop, after exchange 1");
}

TEST_F(EnglishWordsOfTheWindow, StateLineTellsALostPort) {
    window.Views().Event([this] { session.Start(); });
    window.Views().Event([this] { PortIsLost(Form(), u"gone"); });
    Look();
    EXPECT_EQ(State(), "Stopped COM1 unplugged, goes on when back");
}

TEST_F(EnglishWordsOfTheWindow, HelpIsThatOfTheFace) {
    Form().SSTab2.Choose(1);
    Look();
    const auto& help = *window.findChild<HelpView*>();
    EXPECT_EQ(help.accessibleName().toStdString(), "Help");
    EXPECT_EQ(help.toPlainText().section(u'\n', 0, 0).toStdString(), "CommTest, how to use it");
}

TEST_F(EnglishWordsOfTheWindow, FirstStepsSayWhatToDo) {
    window.ShowFirstSteps([] {});
    Look();
    for (const char* said : {"Choose port", "Choose instrument", "Press F5", "No instrument at hand?"}) {
        bool isThere = false;
        for (const auto* label : window.findChildren<QLabel*>()) isThere = isThere || label->text() == said;
        EXPECT_TRUE(isThere) << said;
    }
    EXPECT_NE(FindButton(window, "Try a simulated one"), nullptr);
    EXPECT_NE(FindButton(window, "Run"), nullptr);
}

TEST_F(EnglishWords, LimitsOfARow) {
    session.Choose(kNativeProtocol, u"仪表甲");
    EXPECT_EQ(WordsOnLimits(Form(), 2).toStdString(), "decimals: 1");
}

TEST_F(EnglishWords, FieldIsNamedAsOnTheScreen) {
    Form().BaudRate().Set(u"fast");
    EXPECT_EQ(FaultyField(13, Form()).toStdString(), "Baud Rate fast is no number");
}

TEST_F(EnglishWords, CountsAgreeWithTheirNouns) {
    EXPECT_EQ(WordsOnSize(1, 8391).toStdString(), "1 instrument, 8,391 parameters");
    EXPECT_EQ(WordsOnSize(213, 1).toStdString(), "213 instruments, 1 parameter");
}

TEST_F(EnglishWords, ProblemOfAPath) {
    EXPECT_EQ(ObstacleTo(PathUse::Writing, "/nowhere/file").toStdString(), "There is no folder /nowhere");
}

TEST_F(EnglishWords, FileThatIsNoCatalogue) {
    QFile file(folder.filePath("letter"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("letters of a friend");
    file.close();
    CatalogueStore store;
    try {
        store.Open({StoreAddress::Kind::LocalFile, file.fileName().toStdU16String(), {u"仪表_名称"}});
        ADD_FAILURE() << "taken";
    } catch (const NoCatalogue& error) {
        EXPECT_EQ(ToUtf8(error.Message()),
                  file.fileName().toStdString() +
                      ": It is no instrument catalogue, nothing was changed (file is "
                      "not a database)");
    }
}

}  // namespace
}  // namespace commtest::testing
