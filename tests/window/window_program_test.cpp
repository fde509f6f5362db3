#include "window/window_program.h"
#include "catalogue/shipped_catalogue.h"
#include "commands/toolbar_commands.h"
#include "host/serial_port.h"
#include "host_qt/program_folder.h"
#include "host_qt/pseudo_terminal.h"
#include "session/events.h"
#include "session/port_settings.h"
#include "window/catalogue_box.h"
#include "window/note_bar.h"
#include "window/text_spin_box.h"
#include "window/widget_search.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <functional>
#include <optional>

namespace commtest::testing {
namespace {

// The whole program with its real store, files and settings, in folders of its own.
class WindowProgramTest : public ::testing::Test {
  protected:
    QTemporaryDir scratch;
    WindowOptions options;
    std::optional<WindowProgram> program;
    QStringList boxes;            // texts of the boxes that came up, each closed at once
    QStringList details;          // what they say below
    std::function<void()> atBox;  // what is done before one is closed

    WindowProgramTest() {
        options.folder = scratch.filePath("folder");
        options.settingsFile = scratch.filePath("settings.ini");
        CreateProgramFolder(options.folder.toStdU16String(), FillWithShippedCatalogue);
        QObject::connect(&closer_, &QTimer::timeout, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (box == nullptr) return;
            if (atBox) atBox();
            boxes += box->text();
            details += box->informativeText();
            box->accept();
        });
        closer_.start(5);
    }

    bool Start() {
        program.emplace(options);
        return program->Start();
    }

    QAbstractSpinBox* Field(const char* name) { return FindNamed<QAbstractSpinBox>(program->Window(), name); }
    void Type(const char* field, const char* text) {
        Field(field)->selectAll();
        QTest::keyClicks(Field(field), text);
    }
    void Leave() {
        RunEvent(Form(), [this] { RunToolbarCommand(Form(), toolbar::kLeave); });
        program->Finish();
        program.reset();
        TakeNoteOfTheEnd();
    }

    // As the program's own loop would.
    static void TakeNoteOfTheEnd() {
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    }

    // Ends it as a fall of the current would.
    void Crash() { program.reset(); }
    void DismissCatalogueBox() {
        QApplication::processEvents();
        program->Window().findChild<CatalogueBox*>()->reject();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    MainForm& Form() { return program->Form(); }

    void ChooseByHand(int protocol, int instrument) {
        Binder& views = program->Window().Views();
        views.Event([&] {
            Form().ConCommTypeList.Set(Form().ConCommTypeList.At(protocol));
            RunIfSet(Form().ConCommTypeList.Click);
        });
        views.Event([&] {
            Form().InstrumentList().Set(Form().InstrumentList().At(instrument));
            RunIfSet(Form().InstrumentList().Click);
        });
    }

    void TypeInterval(const char* text) {
        auto* interval = program->Window().findChild<TextSpinBox*>("ConDelayTime");
        interval->selectAll();
        QTest::keyClicks(interval, text);
    }

    QString Stored(const QString& key) {
        return QSettings(options.settingsFile, QSettings::IniFormat).value("SystemSetting/" + key).toString();
    }

  private:
    QTimer closer_;
};

TEST_F(WindowProgramTest, TickOfATimerIsShownSoon) {
    ASSERT_TRUE(Start());
    const Binder& views = program->Window().Views();
    program->Window().Views().Look();
    ASSERT_FALSE(views.LooksSoon());
    Form().Timer1[0].SetInterval(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return views.LooksSoon(); }));
}

TEST_F(WindowProgramTest, FirstRunWritesTheDefaults) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(Stored("ShowType"), "1");
    EXPECT_EQ(Stored("CommPort"), "9600,N,8,1 COM1");
    EXPECT_EQ(Stored("SoftSeting"), "1000 1 16 0 0 1");
    EXPECT_TRUE(program->Window().isVisible());
    EXPECT_EQ(ToUtf8(Form().StatusBar1[0].Value()), "衡岫仪器公司    本地数据库");
    EXPECT_EQ(boxes, QStringList());
}

// --- Faces ---

TEST_F(WindowProgramTest, FaceThatIsNamedIsShown) {
    options.face = FindFace(u"english");
    ASSERT_TRUE(Start());
    EXPECT_EQ(program->Window().windowTitle().toStdString().substr(0, 55),
              "KERO- series instruments communication demo software V ");
    EXPECT_EQ(ToUtf8(Form().settingsTable), "表格-设置");
}

TEST_F(WindowProgramTest, FaceThatIsRememberedIsShownUnlessOneIsNamed) {
    QSettings(options.settingsFile, QSettings::IniFormat).setValue("Window/Face", "english");
    ASSERT_TRUE(Start());
    EXPECT_EQ(ToUtf8(Form().StartStopCaption()), "Run");
    Leave();
    options.face = FindFace(u"chinese");
    ASSERT_TRUE(Start());
    EXPECT_EQ(ToUtf8(Form().StartStopCaption()), "开始通讯");
}

// --- What is restored ---

TEST_F(WindowProgramTest, ChoicesAreRestored) {
    ASSERT_TRUE(Start());
    auto* names = FindNamed<QComboBox>(program->Window(), "名称");
    QTest::keyClick(names, Qt::Key_Down);
    QTest::keyClick(names->view(), Qt::Key_Return);
    const std::string instrument = names->currentText().toStdString();
    EXPECT_EQ(instrument, ToUtf8(Form().ConMeterName[0].At(1)));
    Type("仪表地址", "7");
    Type("通讯间隔", "250");
    Leave();
    ASSERT_TRUE(Start());
    EXPECT_EQ(FindNamed<QComboBox>(program->Window(), "名称")->currentText().toStdString(), instrument);
    EXPECT_EQ(Field("仪表地址")->text().toStdString(), "7");
    EXPECT_EQ(Field("通讯间隔")->text().toStdString(), "250");
}

TEST_F(WindowProgramTest, SessionWithASimulatedInstrumentLeavesTheUsersSettingsAsTheyWere) {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, scratch.path());
    options.settingsFile.clear();
    const auto stored = [] {
        return QSettings("CommTest", "CommTest").value("SystemSetting/SoftSeting").toString();
    };
    ASSERT_TRUE(Start());
    Form().ConMeterAddr.Set(u"7");
    Leave();
    EXPECT_EQ(stored(), "1000 7 16 0 0 1");
    options.hasSimulator = true;
    ASSERT_TRUE(Start());
    Form().ConMeterAddr.Set(u"9");
    Leave();
    EXPECT_EQ(stored(), "1000 7 16 0 0 1");
}

TEST_F(WindowProgramTest, SessionWithASimulatedInstrumentKeepsItsChoicesInAFileThatIsNamedForIt) {
    options.hasSimulator = true;
    ASSERT_TRUE(Start());
    Form().ConDelayTime.Set(u"250");
    Leave();
    EXPECT_EQ(Stored("SoftSeting"), "250 1 16 0 0 1");
}

TEST_F(WindowProgramTest, SessionWithASimulatedInstrumentKeepsNeitherItsPortNorItsInstrument) {
    QSettings file(options.settingsFile, QSettings::IniFormat);
    file.setValue("SystemSetting/CommPort", "19200,N,8,1 COM3");
    file.setValue("SystemSetting/SoftSeting", "1000 7 16 1 0 1");
    file.sync();
    options.hasSimulator = true;
    ASSERT_TRUE(Start());
    program->Window().Views().Event([this] { Form().MSComm1.NameDevice(9, u"/dev/ttyS3"); });
    ChooseByHand(2, 0);
    Leave();
    EXPECT_EQ(Stored("CommPort"), "19200,N,8,1 COM3");
    EXPECT_EQ(Stored("SoftSeting"), "1000 7 16 1 0 1");
    file.sync();
    for (const char* key : {"Window/Protocol", "Window/Instrument", "Ports/COM9"})
        EXPECT_FALSE(file.contains(key)) << key;
}

// --- What is remembered when it is chosen ---

TEST_F(WindowProgramTest, ChoicesSurviveAProgramThatDoesNotLeave) {
    ASSERT_TRUE(Start());
    ChooseByHand(1, 1);
    const Text protocol = Form().ConCommTypeList.Value();
    const Text instrument = Form().InstrumentList().Value();
    TypeInterval("250");
    program->Window().Views().Event([this] {
        Form().WriteType.Choose(2);
        Form().ConSelChange.Set(true);
        Form().ConAutoSave[0].Set(true);
        Form().ConAutoSave[1].Set(true);
    });
    Crash();
    ASSERT_TRUE(Start());
    EXPECT_EQ(ToUtf8(Form().ConCommTypeList.Value()), ToUtf8(protocol));
    EXPECT_EQ(ToUtf8(Form().InstrumentList().Value()), ToUtf8(instrument));
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "250");
    EXPECT_EQ(Form().WriteType.Chosen(), 2);
    EXPECT_TRUE(Form().ConSelChange.Value());
    EXPECT_TRUE(Form().ConAutoSave[0].Value());
    EXPECT_TRUE(Form().ConAutoSave[1].Value());
}

TEST_F(WindowProgramTest, IntervalThatTheSessionSetsIsNotRemembered) {
    ASSERT_TRUE(Start());
    program->Window().Views().Event([this] { Form().ConDelayTime.Set(u"1"); });
    Crash();
    ASSERT_TRUE(Start());
    EXPECT_EQ(ToUtf8(Form().ConDelayTime.Value()), "1000");
}

TEST_F(WindowProgramTest, EachProtocolShowsItsFramesAsItWasLastChosen) {
    ASSERT_TRUE(Start());
    const int byDefault = Form().ShowMode.Chosen();
    const int other = 1 - byDefault;
    program->Window().Views().Event([&] { Form().ShowMode.Choose(other); });
    ChooseByHand(1, 0);
    const int ofTheSecond = Form().ShowMode.Chosen();
    program->Window().Views().Event([&] { Form().ShowMode.Choose(1 - ofTheSecond); });
    ChooseByHand(0, 0);
    EXPECT_EQ(Form().ShowMode.Chosen(), other);
    ChooseByHand(0, 0);
    EXPECT_EQ(Form().ShowMode.Chosen(), other);
    ChooseByHand(1, 0);
    EXPECT_EQ(Form().ShowMode.Chosen(), 1 - ofTheSecond);
    Crash();
    ASSERT_TRUE(Start());
    EXPECT_EQ(Form().ShowMode.Chosen(), 1 - ofTheSecond);
}

TEST_F(WindowProgramTest, InstrumentThatIsGoneLeavesTheOneChosen) {
    QSettings file(options.settingsFile, QSettings::IniFormat);
    file.setValue("Window/Protocol", "no such protocol");
    file.setValue("Window/Instrument", "no such instrument");
    file.sync();
    ASSERT_TRUE(Start());
    EXPECT_EQ(Form().ConCommTypeList.IndexOf(Form().ConCommTypeList.Value()), 0);
    EXPECT_EQ(Form().InstrumentList().IndexOf(Form().InstrumentList().Value()), 0);
    EXPECT_EQ(boxes, QStringList());
}

TEST_F(WindowProgramTest, StartWithoutACatalogueKeepsTheRememberedInstrument) {
    ASSERT_TRUE(Start());
    ChooseByHand(1, 1);
    const Text instrument = Form().InstrumentList().Value();
    Crash();
    const QString folder = std::exchange(options.folder, scratch.filePath("empty"));
    QDir().mkpath(options.folder);
    ASSERT_TRUE(Start());
    program->Window().Views().Look();
    Crash();
    options.folder = folder;
    ASSERT_TRUE(Start());
    EXPECT_EQ(ToUtf8(Form().InstrumentList().Value()), ToUtf8(instrument));
}

// --- A second start ---

TEST_F(WindowProgramTest, SecondStartRaisesTheFirstWindowBehindItsMessage) {
    ASSERT_TRUE(Start());
    program->Window().showMinimized();
    atBox = [this] { EXPECT_TRUE(program->Window().isMinimized()); };
    WindowProgram second(options);
    EXPECT_FALSE(second.Start());
    TakeNoteOfTheEnd();
    EXPECT_EQ(boxes.size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !program->Window().isMinimized(); }));
    EXPECT_TRUE(program->Window().isVisible());
}

TEST_F(WindowProgramTest, SecondInstanceIsRefused) {
    ASSERT_TRUE(Start());
    WindowProgram second(options);
    EXPECT_FALSE(second.Start());
    TakeNoteOfTheEnd();
    EXPECT_EQ(boxes, QStringList("对不起，本软件已经有一个版本在运行了，请按确定键退出！"));
}

TEST_F(WindowProgramTest, InstanceThatHasEndedLeavesRoom) {
    ASSERT_TRUE(Start());
    Leave();
    EXPECT_TRUE(Start());
}

TEST_F(WindowProgramTest, ServerThatCannotBeReachedFallsBackSilently) {
    QSettings(options.settingsFile, QSettings::IniFormat)
        .setValue("SystemSetting/SoftSeting", "1000 1 16 0 0 0");
    ASSERT_TRUE(Start());
    EXPECT_EQ(ToUtf8(Form().StatusBar1[0].Value()), "衡岫仪器公司    网络数据库    本地数据库");
    EXPECT_FALSE(Form().ConCommTypeList.Items().empty());
    EXPECT_EQ(boxes, QStringList());
}

class ToolOfTheProgramTest : public WindowProgramTest {
  protected:
    void PressToolKey() {
        program->Window().activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&program->Window()));
        QTest::keyClick(&program->Window(), Qt::Key_T, Qt::ControlModifier);
    }
};

ToolWindow* FindToolWindow() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* tool = qobject_cast<ToolWindow*>(widget)) return tool;
    }
    return nullptr;
}

TEST_F(ToolOfTheProgramTest, ToolWindowIsMadeWhenItIsWantedAndOnlyOnce) {
    ASSERT_TRUE(Start());
    EXPECT_EQ(FindToolWindow(), nullptr);
    PressToolKey();
    ToolWindow* tool = FindToolWindow();
    ASSERT_NE(tool, nullptr);
    EXPECT_TRUE(tool->isVisible());
    tool->close();
    PressToolKey();
    EXPECT_EQ(FindToolWindow(), tool);
    EXPECT_TRUE(tool->isVisible());
}

TEST_F(ToolOfTheProgramTest, StartKeyWorksInTheToolWindow) {
    PseudoTerminal terminal;
    options.devices[1] = terminal.Device();
    ASSERT_TRUE(Start());
    PressToolKey();
    ToolWindow* tool = FindToolWindow();
    tool->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(tool));
    QTest::keyClick(tool, Qt::Key_F5);
    EXPECT_TRUE(Form().IsRunning());
    EXPECT_TRUE(tool->isVisible());
    QTest::keyClick(tool, Qt::Key_F5);
    EXPECT_FALSE(Form().IsRunning());
}

TEST_F(ToolOfTheProgramTest, ToolOpenedWithoutACatalogueComesBehindTheBoxThatSaysSo) {
    options.folder = scratch.filePath("empty");
    QDir().mkpath(options.folder);
    ASSERT_TRUE(Start());
    DismissCatalogueBox();
    atBox = [this] {
        program->Window().Views().Look();
        EXPECT_EQ(FindToolWindow(), nullptr);
    };
    PressToolKey();
    EXPECT_EQ(boxes.size(), 1);
    ASSERT_TRUE(QTest::qWaitFor([] { return FindToolWindow() != nullptr; }));
    EXPECT_TRUE(FindToolWindow()->isVisible());
}

TEST_F(ToolOfTheProgramTest, ToolWindowGoesWithTheProgramAndItsSizeIsKept) {
    ASSERT_TRUE(Start());
    PressToolKey();
    FindToolWindow()->resize(930, 555);
    Leave();
    EXPECT_EQ(FindToolWindow(), nullptr);
    ASSERT_TRUE(Start());
    PressToolKey();
    EXPECT_EQ(FindToolWindow()->size(), QSize(930, 555));
}

TEST_F(ToolOfTheProgramTest, ClockOfTheToolGoesOn) {
    ASSERT_TRUE(Start());
    PressToolKey();
    const auto clock = [] {
        return FindToolWindow()->findChild<QStatusBar*>()->findChild<QLabel*>()->text();
    };
    const QString first = clock();
    EXPECT_TRUE(QTest::qWaitFor([&] { return clock() != first; }, 5000));
}

TEST_F(WindowProgramTest, WindowOpensWithoutACatalogue) {
    options.folder = scratch.filePath("empty");
    QDir().mkpath(options.folder);
    ASSERT_TRUE(Start());
    EXPECT_TRUE(program->Window().isVisible());
    EXPECT_TRUE(Form().ConCommTypeList.Items().empty());
    EXPECT_EQ(boxes, QStringList());
}

TEST_F(WindowProgramTest, PortThatIsNotThereIsToldWithReasonAndTheProgramGoesOn) {
    options.devices[1] = scratch.filePath("no-device");
    ASSERT_TRUE(Start());
    RunEvent(Form(), [this] { RunToolbarCommand(Form(), toolbar::kStartStop); });
    EXPECT_TRUE(QTest::qWaitFor([this] { return !boxes.isEmpty(); }, 3000));
    EXPECT_EQ(boxes, QStringList("系统串口被占用,无法打开！"));
    EXPECT_FALSE(Form().IsRunning());
}

TEST_F(WindowProgramTest, PulledOutAdapterStopsTheSessionAndPluggedInAgainGoesOn) {
    const QString adapter = scratch.filePath("adapter");
    const auto plugIn = [&](PseudoTerminal& terminal) {
        QFile::remove(adapter);
        QFile::link(terminal.Device(), adapter);
    };
    const auto press = [this] {
        RunEvent(Form(), [this] { RunToolbarCommand(Form(), toolbar::kStartStop); });
    };
    options.devices[1] = adapter;
    ASSERT_TRUE(Start());
    PseudoTerminal first;
    plugIn(first);
    press();
    ASSERT_TRUE(QTest::qWaitFor([this] { return Form().NoReplyCount > 0; }));
    const std::string record = ToUtf8(Form().ConCommString[1].WholeText());
    first.HangUp();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !boxes.isEmpty(); }));
    EXPECT_EQ(boxes, QStringList("串口已断开,通讯停止！"));
    EXPECT_EQ(details, QStringList("COM1 (" + first.Device() + ") 已断开。请检查接线后重新开始"));
    EXPECT_FALSE(Form().IsRunning());
    EXPECT_EQ(ToUtf8(Form().ConCommString[1].WholeText()), record);

    PseudoTerminal second;
    plugIn(second);
    const int sent = Form().SendCount;
    press();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Form().SendCount > sent; }));
    EXPECT_EQ(second.Read(8), "@01RR01\r");
    EXPECT_EQ(boxes.size(), 1);
}

TEST_F(WindowProgramTest, PluggedInAgainIsOfferedToGoOn) {
    const QString adapter = scratch.filePath("adapter");
    options.devices[1] = adapter;
    PseudoTerminal first;
    QFile::link(first.Device(), adapter);
    ASSERT_TRUE(Start());
    RunEvent(Form(), [this] { RunToolbarCommand(Form(), toolbar::kStartStop); });
    ASSERT_TRUE(QTest::qWaitFor([this] { return Form().NoReplyCount > 0; }));
    QFile::remove(adapter);
    first.HangUp();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !boxes.isEmpty(); }));
    auto& notes = program->Window().Notes();
    EXPECT_NE(notes.Text().toStdString(), "COM1 已恢复");

    PseudoTerminal second;
    QFile::link(second.Device(), adapter);
    ASSERT_TRUE(QTest::qWaitFor([&] { return notes.Asks(); }));
    EXPECT_EQ(notes.Text().toStdString(), "COM1 已恢复");
    const int sent = Form().SendCount;
    notes.findChild<QPushButton*>()->click();
    ASSERT_TRUE(QTest::qWaitFor([&] { return Form().SendCount > sent; }));
    EXPECT_EQ(notes.Text().toStdString(), "");
    EXPECT_EQ(second.Read(8), "@01RR01\r");
}

TEST_F(WindowProgramTest, DeviceThatIsNamedForAPortIsRemembered) {
    ASSERT_TRUE(Start());
    Form().MSComm1.NameDevice(9, u"/dev/ttyS3");
    EXPECT_EQ(QSettings(options.settingsFile, QSettings::IniFormat).value("Ports/COM9").toString(),
              "/dev/ttyS3");
}

TEST_F(WindowProgramTest, DevicesOfPortsStandInTheSettings) {
    QSettings(options.settingsFile, QSettings::IniFormat).setValue("Ports/COM9", "/dev/far");
    ASSERT_TRUE(Start());
    bool found = false;
    for (const PortDevice& port : Form().MSComm1.Devices())
        found |= port.number == 9 && port.device == u"/dev/far";
    EXPECT_TRUE(found);
}

TEST_F(WindowProgramTest, PaletteOfTheSettingsIsUsed) {
    QSettings(options.settingsFile, QSettings::IniFormat).setValue("Window/Theme", "dark");
    ASSERT_TRUE(Start());
    EXPECT_EQ(QApplication::palette().window().color(), QColor(0x1C2328));
}

}  // namespace
}  // namespace commtest::testing
