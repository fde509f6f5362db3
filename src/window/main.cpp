#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <iostream>

#include "host_qt/driver_words.h"
#include "host_qt/named_port.h"
#include "host_qt/own_version.h"
#include "host_qt/store_thread.h"
#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "version/build_facts.h"
#include "window/spoken_words.h"
#include "window/window_program.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int kBadUsage = 2;
constexpr int kNoAccess = 3;

[[noreturn]] void RefuseOption(const QString& problem) {
    std::cerr << problem.toStdString() << std::endl;
    std::exit(kBadUsage);
}

commtest::DeviceMap DevicesOf(const QStringList& ports) {
    commtest::DeviceMap devices;
    for (const QString& text : ports) {
        const auto port = commtest::NamedPortOf(text);
        if (!port || port->device.isEmpty())
            RefuseOption(commtest::Words::tr("--port 须写成 COM1=设备 的形式"));
        devices[port->number] = port->device;
    }
    return devices;
}

void AddOptions(QCommandLineParser& parser) {
    parser.setApplicationDescription(commtest::Words::tr("与串口上的工业仪表通讯：轮询、修改参数、记录。"));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions(
        {{u"face"_s, commtest::Words::tr("界面，默认为上次选定的。"), u"chinese|english"_s},
         {u"folder"_s, commtest::Words::tr("程序文件夹，目录文件 通讯数据.mdb 在其中。"),
          commtest::Words::tr("文件夹")},
         {u"settings"_s, commtest::Words::tr("设置文件，默认为用户的设置。"), commtest::Words::tr("文件")},
         {u"port"_s, commtest::Words::tr("串口的设备，可以多次给出。"), commtest::Words::tr("COM1=设备")},
         {u"simulator"_s, commtest::Words::tr("在 COM1 上接一台模拟仪表。")}});
}

void NameProgram() {
    QCoreApplication::setApplicationName(u"commtest"_s);
    QCoreApplication::setApplicationVersion(QString::fromLatin1(commtest::VersionOfBuild()));
}

QStringList ArgumentsOf(int argc, char* argv[]) { return {argv, argv + argc}; }

// The face that the arguments ask for, as far as they can be read.
const commtest::WindowFace& FaceIn(const QStringList& arguments) {
    QCommandLineParser parser;
    AddOptions(parser);
    parser.parse(arguments);
    commtest::WindowOptions options;
    options.settingsFile = parser.value(u"settings"_s);
    options.face = commtest::FindFace(parser.value(u"face"_s));
    return commtest::ChosenFace(options);
}

const commtest::WindowFace* NamedFaceOf(const QCommandLineParser& parser) {
    if (!parser.isSet(u"face"_s)) return nullptr;
    const commtest::WindowFace* face = commtest::FindFace(parser.value(u"face"_s));
    if (face == nullptr) RefuseOption(commtest::Words::tr("--face 须是 chinese 或 english"));
    return face;
}

commtest::WindowOptions OptionsOf(const QCoreApplication& application) {
    QCommandLineParser parser;
    AddOptions(parser);
    parser.process(application);
    commtest::WindowOptions options;
    options.folder = parser.value(u"folder"_s);
    options.settingsFile = parser.value(u"settings"_s);
    options.face = NamedFaceOf(parser);
    options.devices = DevicesOf(parser.values(u"port"_s));
    options.hasSimulator = parser.isSet(u"simulator"_s);
    return options;
}

// What is asked about the program is answered, and a face that there is not refused, without a display.
void AnswerQuestions(int argc, char* argv[]) {
    QCommandLineParser parser;
    AddOptions(parser);
    parser.parse(ArgumentsOf(argc, argv));
    const bool asks = parser.isSet(u"help"_s) || parser.isSet(u"help-all"_s) || parser.isSet(u"version"_s);
    const bool isUnknown = parser.isSet(u"face"_s) && commtest::FindFace(parser.value(u"face"_s)) == nullptr;
    if (!asks && !isUnknown) return;
    const QCoreApplication application(argc, argv);
    NameProgram();
    if (parser.isSet(u"version"_s)) {
        std::cout << commtest::OwnVersionLines("commtest") << std::flush;
        std::exit(0);
    }
    const commtest::SpokenWords words(FaceIn(ArgumentsOf(argc, argv)));
    if (!asks) NamedFaceOf(parser);
    OptionsOf(application);
}

int Run(int argc, char* argv[]) {
    QApplication application(argc, argv);
    commtest::SilenceStoreDrivers();
    NameProgram();
    const commtest::SpokenWords words(FaceIn(QCoreApplication::arguments()));
    const commtest::WindowOptions options = OptionsOf(application);
    try {
        commtest::WindowProgram program(options);
        if (!program.Start()) return 0;
        const int status = QApplication::exec();
        program.Finish();
        return status;
    } catch (const commtest::RuntimeError& error) {
        QMessageBox::critical(
            nullptr, u"CommTest"_s,
            QString::fromStdU16String(error.StandardMessage()) + u"\n\n"_s +
                commtest::Words::tr("程序文件夹不能建立，请用 --folder 指定另一个文件夹。"));
        return kNoAccess;
    }
}

}  // namespace

int main(int argc, char* argv[]) {
    AnswerQuestions(argc, argv);
    return commtest::EndedWith(Run(argc, argv));
}
