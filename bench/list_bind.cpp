// What the lists of a large catalogue cost in the window, a line each: name, milliseconds.
//     list_bind INSTRUMENTS
// Each instrument has a chip record. The first time of a list is from the click to its first picture, the
// others are the longest of their kind. "names" is the choice of the protocol that all of them have, with
// their names brought into the list of the sidebar; "choice" that of an instrument of 200 parameters beside
// them. Both are told to the end of the event, and to the end of the picture that follows it.
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include "catalogue/catalogue_connection.h"
#include "catalogue/chip_records.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/shipped_catalogue.h"
#include "host_qt/folder_files.h"
#include "host_qt/program_folder.h"
#include "host_qt/qt_store.h"
#include "window/catalogue_page.h"
#include "window/window_program.h"

namespace commtest {

namespace {

using namespace Qt::StringLiterals;

constexpr int kScrollSteps = 200;
constexpr int kRounds = 5;
constexpr int kRoundsOfEvents = 21;
constexpr TextView kProtocol = u"TQ仪表协议";
constexpr int kFirstInstrument = 1000;
constexpr int kLongInstrument = 900000;
constexpr TextView kLongName = u"多路巡检仪";
constexpr int kParameters = 200;
constexpr int kCatalogueTab = 2;

void AddParameter(InstrumentCatalogue& catalogue, int instrument, int number) {
    ParameterRecord parameter;
    parameter.id = instrument * kParameters + number;
    parameter.instrumentId = instrument;
    parameter.name = u"第%1路测量值"_s.arg(number).toStdU16String();
    parameter.address = u"%1"_s.arg(number, 4, 16, QChar(u'0')).toUpper().toStdU16String();
    parameter.length = u"2";
    parameter.attribute = u"RW";
    parameter.decimalPoint = u"1";
    catalogue.AddParameter(parameter);
}

void AddInstrument(InstrumentCatalogue& catalogue, int id, const Text& name, const Text& code) {
    InstrumentRecord instrument;
    instrument.id = id;
    instrument.name = name;
    instrument.code = code;
    instrument.protocol = kProtocol;
    instrument.sortKey = u"11";
    instrument.className = u"数字显示仪表";
    instrument.classId = u"1";
    catalogue.AddInstrument(instrument);
}

void AddInstruments(const QString& folder, int count) {
    QtStore store;
    store.Open(LocalCatalogue(FolderFiles(folder)));
    store.BeginTransaction();
    InstrumentCatalogue catalogue(store);
    AddInstrument(catalogue, kLongInstrument, Text(kLongName), u"11009999");
    for (int number = 1; number <= kParameters; ++number) AddParameter(catalogue, kLongInstrument, number);
    for (int number = 1; number <= count; ++number) {
        const Text code = u"1100010100%1"_s.arg(number).toStdU16String();
        const int id = kFirstInstrument + number;
        AddInstrument(catalogue, id, u"HX-S%1智能数字显示控制仪"_s.arg(number).toStdU16String(), code);
        AddParameter(catalogue, id, 1);
        store.AddRow(u"仪表_芯片", {u"编号", u"文件名", u"日期", u"实例", u"属性", u"功能简述"},
                     {code, u"S%1V100.HEX"_s.arg(number).toStdU16String(), Text(u"2026-03-12"), Text(u"标准"),
                      Text(u"量产"), Text(u"标准型，带四路报警与变送输出。")});
    }
    store.Commit();
}

double MillisecondsOf(const std::function<void()>& work) {
    QElapsedTimer watch;
    watch.start();
    work();
    return static_cast<double>(watch.nsecsElapsed()) * 1e-6;
}

void Tell(const char* name, double milliseconds) { std::printf("%s %.1f\n", name, milliseconds); }

void TellLongest(const char* name, int times, const std::function<void(int)>& work) {
    double longest = 0;
    for (int time = 0; time < times; ++time) longest = std::max(longest, MillisecondsOf([&] { work(time); }));
    Tell(name, longest);
}

void Paint(GridView& list) {
    QApplication::processEvents();
    list.viewport()->repaint();
}

void MeasureList(const char* name, GridView& list, const std::function<void()>& bind) {
    std::printf("%s\n", name);
    Tell("  first", MillisecondsOf([&] {
             bind();
             Paint(list);
         }));
    TellLongest("  again", kRounds, [&](int) {
        bind();
        Paint(list);
    });
    TellLongest("  sort", 2 * kRounds, [&](int round) {
        list.OrderBy(3 + round % 2);
        Paint(list);
    });
    TellLongest("  scroll", kScrollSteps, [&](int step) {
        list.verticalScrollBar()->setValue(step * 20);
        Paint(list);
    });
    TellLongest("  find", kRounds, [&](int) {
        list.keyboardSearch(u"zz"_s);
        Paint(list);
    });
}

// To the end of the event, and to the end of the picture that follows it; the quickest and the median of
// each.
void MeasureEvent(const char* name, const std::function<void()>& prepare,
                  const std::function<void()>& event) {
    std::vector<double> bound;
    std::vector<double> painted;
    for (int round = 0; round < kRoundsOfEvents; ++round) {
        prepare();
        QApplication::processEvents();
        QElapsedTimer watch;
        watch.start();
        event();
        bound.push_back(static_cast<double>(watch.nsecsElapsed()) * 1e-6);
        QApplication::processEvents();
        painted.push_back(static_cast<double>(watch.nsecsElapsed()) * 1e-6);
    }
    std::printf("%s\n", name);
    for (auto* times : {&bound, &painted}) {
        std::sort(times->begin(), times->end());
        Tell(times == &bound ? "  event, quickest" : "  picture, quickest", times->front());
        Tell(times == &bound ? "  event, median" : "  picture, median", (*times)[kRoundsOfEvents / 2]);
    }
}

void MeasureChoices(Binder& binder) {
    MainForm& form = binder.Form();
    const auto chooseProtocol = [&](TextView protocol) {
        binder.Event([&] {
            form.ConCommTypeList.Set(Text(protocol));
            RunIfSet(form.ConCommTypeList.Click);
        });
    };
    const auto chooseInstrument = [&](const Text& instrument) {
        binder.Event([&] {
            form.InstrumentList().Set(instrument);
            RunIfSet(form.InstrumentList().Click);
        });
    };
    MeasureEvent(
        "names", [&] { chooseProtocol(u"ModBus-RTU协议"); }, [&] { chooseProtocol(kProtocol); });
    MeasureEvent(
        "choice", [&] { chooseInstrument(form.InstrumentList().At(3)); },
        [&] { chooseInstrument(Text(kLongName)); });
}

int Measure(int instruments) {
    const QTemporaryDir scratch;
    WindowOptions options;
    options.folder = scratch.filePath(u"folder"_s);
    options.settingsFile = scratch.filePath(u"settings.ini"_s);
    CreateProgramFolder(options.folder.toStdU16String(), FillWithShippedCatalogue);
    AddInstruments(options.folder, instruments);
    WindowProgram program(options);
    if (!program.Start()) return 1;
    QApplication::processEvents();
    Binder& binder = program.Window().Views();
    MainForm& form = program.Form();
    MeasureChoices(binder);
    binder.Event([&] { form.SSTab2.Choose(kCatalogueTab); });
    auto& page = *program.Window().findChild<CataloguePage*>();
    MeasureList("instruments", page.List(),
                [&] { binder.Event([&] { form.SSTab2.Choose(kCatalogueTab); }); });
    MeasureList("chips", page.Chips().List(), [&] { binder.Event([&] { ShowChipFilePanel(form); }); });
    return 0;
}

}  // namespace

}  // namespace commtest

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationVersion("1.0.0");
    return commtest::Measure(argc > 1 ? std::atoi(argv[1]) : 5000);
}
