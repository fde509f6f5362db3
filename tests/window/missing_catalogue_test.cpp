#include "window/missing_catalogue.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <optional>
#include <utility>

#include "catalogue/shipped_catalogue.h"
#include "commands/toolbar_commands.h"
#include "host_qt/program_folder.h"
#include "session/events.h"
#include "window/catalogue_box.h"
#include "window/empty_state.h"
#include "window/grid_view.h"
#include "window/note_bar.h"
#include "window/state_line.h"
#include "window/widget_search.h"
#include "window/window_program.h"

namespace commtest::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* kReason =
    "文件不存在。可以在这里新建一个带示例仪表的目录，或选择已有目录所在的文件夹。上次选定的协议和仪表会保留"
    "。";

// The whole program over a folder without a catalogue.
class MissingCatalogueTest : public ::testing::Test {
  protected:
    QTemporaryDir scratch;
    WindowOptions options;
    std::optional<WindowProgram> program;

    MissingCatalogueTest() {
        options.folder = scratch.filePath("folder");
        options.settingsFile = scratch.filePath("settings.ini");
        QDir().mkpath(options.folder);
    }

    void MakeCatalogueIn(const QString& folder) {
        CreateProgramFolder(folder.toStdU16String(), FillWithShippedCatalogue);
    }

    // The second instrument of the eighth protocol is chosen; then the catalogue goes.
    void ChooseAndLoseTheCatalogue() {
        QSettings(options.settingsFile, QSettings::IniFormat)
            .setValue("SystemSetting/SoftSeting", "250 7 16 6 1 1");
        MakeCatalogueIn(options.folder);
        Start();
        protocol = ToUtf8(Form().ConCommTypeList.Value());
        instrument = ToUtf8(Form().InstrumentName());
        Leave();
        QFile::remove(Path());
    }

    void Start() {
        program.emplace(options);
        ASSERT_TRUE(program->Start());
        QApplication::processEvents();
    }
    void Leave() {
        RunEvent(Form(), [this] { RunToolbarCommand(Form(), toolbar::kLeave); });
        program->Finish();
        program.reset();
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    }

    MainForm& Form() { return program->Form(); }
    QString Path() const { return options.folder + "/通讯数据.mdb"; }
    CatalogueBox* Box() { return program->Window().findChild<CatalogueBox*>(); }
    void Press(const char* caption) {
        FindButton(*Box(), caption)->click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        program->Window().Views().Look();
    }
    std::string Reason() { return Box()->findChild<QLabel*>("reason")->text().toStdString(); }
    QComboBox& List(const char* name) { return *FindNamed<QComboBox>(program->Window(), name); }
    QString Stored(const QString& key) {
        return QSettings(options.settingsFile, QSettings::IniFormat).value(key).toString();
    }
    std::string Shown(int row, int col) { return ToUtf8(Form().ParameterGrid().Cell(row, col)); }

    std::string protocol;
    std::string instrument;
};

TEST_F(MissingCatalogueTest, BoxSaysWhereWhyAndWhatCanBeDone) {
    Start();
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->isVisible());
    EXPECT_EQ(Reason(), kReason);
    auto* path = FindNamed<QLineEdit>(*Box(), "仪表目录");
    EXPECT_EQ(path->text(), Path());
    EXPECT_TRUE(path->isReadOnly());
    EXPECT_GE(Box()->width(), 560);
    EXPECT_TRUE(static_cast<QPushButton*>(FindButton(*Box(), "在此新建"))->isDefault());
    EXPECT_NE(FindButton(*Box(), "选择文件夹..."), nullptr);
    EXPECT_NE(FindButton(*Box(), "不用目录继续"), nullptr);
    EXPECT_EQ(Box()->windowTitle(), program->Window().windowTitle());
}

TEST_F(MissingCatalogueTest, BoxDoesNotComeOverACatalogue) {
    MakeCatalogueIn(options.folder);
    Start();
    EXPECT_EQ(Box(), nullptr);
    EXPECT_NE(program->Window().State().Shown().head, "没有仪表目录");
}

TEST_F(MissingCatalogueTest, GridHasItsHeadingsAndFifteenNumberedRows) {
    Start();
    const auto& grid = *FindNamed<GridView>(program->Window(), "参数表");
    EXPECT_EQ(grid.model()->rowCount(), 15);
    EXPECT_EQ(Shown(0, 1), "参数名称");
    EXPECT_EQ(Shown(0, 10), "修改值");
    EXPECT_EQ(Shown(1, 0), "001 ");
    EXPECT_EQ(Shown(15, 0), "015 ");
    EXPECT_EQ(Shown(1, 1), "");
    for (int col = 0; col < 11; ++col) EXPECT_GT(Form().ParameterGrid().Column(col).width, 0) << col;
}

TEST_F(MissingCatalogueTest, CatalogueIsMadeInPlaceAndOpened) {
    ChooseAndLoseTheCatalogue();
    Start();
    QTest::keyClick(Box(), Qt::Key_Return);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    program->Window().Views().Look();
    EXPECT_TRUE(QFile::exists(Path()));
    EXPECT_EQ(Box(), nullptr);
    EXPECT_EQ(ToUtf8(Form().ConCommTypeList.Value()), protocol);
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), instrument);
    EXPECT_TRUE(List("协议类型").isEnabled());
    EXPECT_EQ(List("名称").currentText().toStdString(), instrument);
    EXPECT_NE(Shown(1, 1), "");
    EXPECT_FALSE(Form().RichTextBox1.Blocks().empty());
    EXPECT_EQ(program->Window().State().Shown().head, "");
}

TEST_F(MissingCatalogueTest, CatalogueOfAnotherFolderIsOpened) {
    MakeCatalogueIn(scratch.filePath("other"));
    Start();
    program->Missing().UseFolder(scratch.filePath("other"));
    EXPECT_FALSE(Box()->isVisible());
    EXPECT_EQ(Form().ConCommTypeList.Items().size(), 14u);
    EXPECT_EQ(ToUtf8(Form().outside.files.PathOf(u"x")), scratch.filePath("other/x").toStdString());
    EXPECT_EQ(Stored("Window/Folder"), "");
}

TEST_F(MissingCatalogueTest, FolderChosenInPlaceOfTheUsualOneIsRemembered) {
    const QString other = scratch.filePath("other");
    const QString usual = qEnvironmentVariable("XDG_DATA_HOME") + "/CommTest";
    QDir().mkpath(usual + "/通讯数据.mdb");  // cannot be a catalogue
    MakeCatalogueIn(other);
    options.folder.clear();
    Start();
    ASSERT_NE(Box(), nullptr);
    program->Missing().UseFolder(other);
    Leave();
    Start();
    EXPECT_EQ(Box(), nullptr);
    EXPECT_EQ(ToUtf8(Form().outside.files.PathOf(u"x")), (other + "/x").toStdString());
    QDir(usual).removeRecursively();
}

TEST_F(MissingCatalogueTest, FolderWithoutACatalogueIsNamedInTheBox) {
    Start();
    program->Missing().UseFolder(scratch.path());
    EXPECT_TRUE(Box()->isVisible());
    EXPECT_EQ(FindNamed<QLineEdit>(*Box(), "仪表目录")->text(), scratch.filePath("通讯数据.mdb"));
}

TEST_F(MissingCatalogueTest, FileThatIsNoCatalogueIsKeptUnderAnotherName) {
    QFile file(Path());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("letters of a friend");
    file.close();
    Start();
    EXPECT_THAT(Reason(), StartsWith("不是仪表通讯数据库，未作任何改动"));
    EXPECT_THAT(Reason(), HasSubstr("原文件改名保留"));
    EXPECT_TRUE(static_cast<QPushButton*>(FindButton(*Box(), "选择文件夹..."))->isDefault());
    Press("在此新建");
    EXPECT_TRUE(Form().outside.store.IsOpen());
    const QStringList kept = QDir(options.folder).entryList({"通讯数据.mdb.*"});
    ASSERT_EQ(kept.size(), 1);
    QFile former(options.folder + "/" + kept[0]);
    ASSERT_TRUE(former.open(QIODevice::ReadOnly));
    EXPECT_EQ(former.readAll(), "letters of a friend");
    EXPECT_THAT(program->Window().Notes().Text().toStdString(), StartsWith("原文件存为 "));
}

TEST_F(MissingCatalogueTest, FormerChoiceStandsDimmedAndIsNamedOnGoingOn) {
    ChooseAndLoseTheCatalogue();
    Start();
    Press("不用目录继续");
    EXPECT_EQ(Box(), nullptr);
    EXPECT_FALSE(List("协议类型").isEnabled());
    EXPECT_EQ(List("协议类型").placeholderText().toStdString(), protocol);
    EXPECT_FALSE(List("名称").isEnabled());
    EXPECT_EQ(List("名称").placeholderText().toStdString(), instrument);
    EXPECT_EQ(program->Window().Notes().Text().toStdString(), "上次的仪表：" + protocol + "，" + instrument);
}

TEST_F(MissingCatalogueTest, LeavingKeepsTheStoredProtocolAndInstrument) {
    ChooseAndLoseTheCatalogue();
    EXPECT_EQ(Stored("SystemSetting/SoftSeting"), "250 7 16 6 1 1");
    Start();
    Press("不用目录继续");
    Form().ConDelayTime.Set(u"300");
    Leave();
    EXPECT_EQ(Stored("SystemSetting/SoftSeting"), "300 7 16 6 1 1");
    EXPECT_EQ(Stored("Window/Protocol").toStdString(), protocol);
    EXPECT_EQ(Stored("Window/Instrument").toStdString(), instrument);
}

TEST_F(MissingCatalogueTest, StateLineBringsTheBoxBack) {
    Start();
    Press("不用目录继续");
    const StateMessage& shown = program->Window().State().Shown();
    EXPECT_EQ(shown.head.toStdString(), "没有仪表目录");
    EXPECT_EQ(shown.text.toStdString(), "通讯需要先选定一台仪表");
    EXPECT_EQ(shown.action.toStdString(), "打开目录");
    FindButton(program->Window(), "打开目录")->click();
    ASSERT_NE(Box(), nullptr);
    EXPECT_TRUE(Box()->isVisible());
}

TEST_F(MissingCatalogueTest, PagesOfTheCatalogueSayThatItIsMissingInsteadOfFailing) {
    Start();
    Press("不用目录继续");
    for (const auto& [tab, name] : {std::pair(2, "仪表清单"), std::pair(3, "演示数据")}) {
        program->Window().Views().Event([&] { Form().SSTab2.Choose(tab); });
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr) << tab;
        const auto& list = *FindNamed<GridView>(program->Window(), name);
        EXPECT_TRUE(FindNamed<EmptyState>(list, "没有仪表目录")->isVisible()) << tab;
        FindButton(list, "打开目录")->click();
        ASSERT_NE(Box(), nullptr);
        Press("不用目录继续");
    }
}

}  // namespace
}  // namespace commtest::testing
