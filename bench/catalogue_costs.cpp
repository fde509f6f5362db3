// What the statements of a catalogue cost, a line each: name, seconds, rows. FILE is the catalogue, or the
// Setup.ini of a server that has one.
//     catalogue_costs FILE add ROWS
//     catalogue_costs FILE import FOLDER
//     catalogue_costs FILE clear
//     catalogue_costs FILE look PROTOCOL INSTRUMENT
//     catalogue_costs FILE recorded INSTRUMENT NOTE REPLY
//     catalogue_costs FILE capture INSTRUMENT NOTE COUNT
// "add" brings parameters in, columns divided by tabs in the order of the table, and commits; "import" a
// whole list. "clear" deletes all instruments, and tells what the longest slice of this takes. "look" tells
// the quickest of some rounds of each query. "recorded" looks for a known and for an unknown pair of a
// recording and reads it whole; "capture" stores so many new replies as a session does, one by one.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <algorithm>
#include <cstdio>
#include <functional>

#include "catalogue/catalogue_connection.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/parameter_list_import.h"
#include "host/file_names.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"

namespace commtest {

namespace {

constexpr int kRounds = 5;

StoreAddress AddressOf(const Text& file) {
    if (file.ends_with(u".ini")) return ServerCatalogue(FolderFiles(QString()), file);
    return {StoreAddress::Kind::LocalFile, file, CatalogueTables()};
}

void Tell(const char* name, double seconds, std::size_t rows) {
    std::printf("%s %.9f %zu\n", name, seconds, rows);
}

double SecondsOf(const std::function<void()>& work) {
    QElapsedTimer watch;
    watch.start();
    work();
    return static_cast<double>(watch.nsecsElapsed()) * 1e-9;
}

std::vector<ParameterRecord> ParametersIn(const QString& name) {
    QFile file(name);
    std::vector<ParameterRecord> parameters;
    if (!file.open(QIODevice::ReadOnly)) return parameters;
    while (!file.atEnd()) {
        const QStringList fields = QString::fromUtf8(file.readLine()).chopped(1).split(u'\t');
        const auto text = [&](int field) { return fields[field].toStdU16String(); };
        parameters.push_back({fields[0].toInt(), fields[1].toInt(), text(2), text(3), text(4), text(5),
                              text(6), text(7), text(8)});
    }
    return parameters;
}

void Add(Store& store, const QString& file) {
    const std::vector<ParameterRecord> parameters = ParametersIn(file);
    const double seconds = SecondsOf([&] {
        store.BeginTransaction();
        InstrumentCatalogue catalogue(store);
        for (const ParameterRecord& parameter : parameters) catalogue.AddParameter(parameter);
        store.Commit();
    });
    Tell("add", seconds, parameters.size());
}

// The list TQ.ini of a folder, from its first line to the commit; the catalogue was emptied before.
void Import(Store& store, const QString& folder) {
    const FolderFiles files(folder);
    ParameterListImport import(store, files.OpenBytes(Text(kListFileName)));
    const double seconds = SecondsOf([&] {
        while (import.Step()) {
        }
        import.Commit();
    });
    Tell("import", seconds, static_cast<std::size_t>(import.Parameters()));
}

void Clear(Store& store) {
    InstrumentCatalogue catalogue(store);
    const auto rows = static_cast<std::size_t>(catalogue.Size().instruments);
    double longest = 0;
    const double seconds = SecondsOf([&] {
        store.BeginTransaction();
        for (bool goesOn = true; goesOn;) {
            longest = std::max(longest, SecondsOf([&] { goesOn = catalogue.ClearSomeInstruments(); }));
        }
        store.Commit();
    });
    Tell("clear", seconds, rows);
    Tell("slice", longest, rows);
}

void LookAt(const char* name, const std::function<StoreRows()>& query) {
    std::size_t rows = 0;
    double quickest = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        quickest = std::min(quickest, SecondsOf([&] { rows = query().rows.size(); }));
    }
    Tell(name, quickest, rows);
}

void Look(Store& store, const Text& protocol, const Text& instrument) {
    const InstrumentCatalogue catalogue(store);
    LookAt("instruments", [&] { return catalogue.InstrumentsOfProtocol(protocol); });
    LookAt("parameters", [&] { return catalogue.ParametersOfInstrument(instrument); });
    LookAt("list", [&] { return catalogue.CatalogueList(); });
}

void LookAtRecorded(Store& store, const Text& instrument, const Text& note, const Text& reply) {
    const InstrumentCatalogue catalogue(store);
    LookAt("known", [&] { return catalogue.RecordedPair(instrument, reply, note); });
    LookAt("unknown", [&] { return catalogue.RecordedPair(instrument, u" FF", note); });
    LookAt("script", [&] { return catalogue.FramesOfRecording(instrument, note); });
}

void Capture(Store& store, const Text& instrument, const Text& note, int count) {
    InstrumentCatalogue catalogue(store);
    RecordedExchange exchange;
    exchange.instrument = instrument;
    exchange.protocol = u"TQ仪表协议";
    exchange.note = note;
    exchange.code = u"11";
    exchange.day = u"2024-05-06";
    exchange.row = u"6";
    exchange.request = u" 0A 40 0D";
    const double seconds = SecondsOf([&] {
        for (int number = 0; number < count; ++number) {
            exchange.reply = u" 0A " + QString::number(number).toStdU16String();
            if (!catalogue.RecordedPair(instrument, exchange.reply, note).rows.empty()) continue;
            catalogue.AddRecordedExchange(exchange);
        }
    });
    Tell("capture", seconds, static_cast<std::size_t>(count));
}

}  // namespace

}  // namespace commtest

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    commtest::CatalogueStore store;
    store.Open(commtest::AddressOf(words[1].toStdU16String()));
    if (words[2] == "add") commtest::Add(store, words[3]);
    if (words[2] == "import") commtest::Import(store, words[3]);
    if (words[2] == "clear") commtest::Clear(store);
    if (words[2] == "recorded") {
        commtest::LookAtRecorded(store, words[3].toStdU16String(), words[4].toStdU16String(),
                                 words[5].toStdU16String());
    }
    if (words[2] == "capture") {
        commtest::Capture(store, words[3].toStdU16String(), words[4].toStdU16String(), words[5].toInt());
    }
    if (words[2] == "look") commtest::Look(store, words[3].toStdU16String(), words[4].toStdU16String());
}
