// Arbitrary bytes as a parameter list and as the template of a channel: both are read to their end or
// refused, the check foretells what an import gives, and what an export writes can be imported.

#include <cstdint>
#include <memory>
#include <string>

#include "catalogue/channel_table.h"
#include "catalogue/list_check.h"
#include "catalogue/parameter_list_export.h"
#include "catalogue/parameter_list_import.h"
#include "fuzz/require.h"
#include "support/bytes_of_text.h"
#include "support/sqlite_store.h"

namespace commtest::fuzz {

namespace {

std::unique_ptr<ByteReader> ReaderOf(const std::string& bytes) {
    return std::make_unique<testing::BytesOfText>(bytes);
}

// What an import of the list came to.
struct Imported {
    bool isDone = false;
    int instruments = 0;
    int parameters = 0;
};

Imported Import(Store& store, const std::string& list) {
    ParameterListImport import(store, ReaderOf(list));
    try {
        while (import.Step()) {
        }
    } catch (const RuntimeError&) {
        return {false, import.Instruments(), import.Parameters()};
    }
    import.Commit();
    return {true, import.Instruments(), import.Parameters()};
}

void RequireForetold(const InstrumentCatalogue& catalogue, const std::string& list,
                     const Imported& imported) {
    int told = 0;
    ListCheck check(catalogue, ReaderOf(list), [&](const ListFinding&) { ++told; });
    while (check.Step()) {
    }
    Require(told == check.Findings(), "each finding is told");
    Require(check.EndsImport() != imported.isDone, "the check knows whether an import ends");
    if (!imported.isDone) return;
    Require(check.Instruments() == imported.instruments, "the check counts the instruments");
    Require(check.Parameters() == imported.parameters, "the check counts the parameters");
}

void RequireStored(const InstrumentCatalogue& catalogue, const Imported& imported) {
    const auto count = [](const StoreRows& rows) { return static_cast<int>(rows.rows.size()); };
    const int instruments = imported.isDone ? imported.instruments : 0;
    const int parameters = imported.isDone ? imported.parameters : 0;
    Require(count(catalogue.AllInstruments()) == instruments, "all instruments are stored, or none");
    Require(count(catalogue.AllParameters()) == parameters, "all parameters are stored, or none");
}

// Instruments have protocols of numbers and names that may hold END: the list that comes out may be refused.
void ExportAndImportAgain(Store& store) {
    std::string list;
    ParameterListExport lines(store, [&](const std::string& block) { list += block; });
    while (lines.Step()) {
    }
    Require(list.ends_with("END\r\nDEVICE   END\r\n"), "a list has its end");
    Import(store, list);
}

void MakeChannels(const std::string& bytes) {
    try {
        ListLines lines(ReaderOf(bytes));
        const ChannelTable table = ChannelTableOf(lines);
        Require(table.rows == 0 || table.bytes.ends_with("\r\n"), "a table ends with a line end");
    } catch (const RuntimeError&) {
    }
}

void Run(const std::string& bytes) {
    static const auto store = testing::MakeEmptyCatalogue();
    InstrumentCatalogue catalogue(*store);
    catalogue.ClearCatalogue();
    const Imported imported = Import(*store, bytes);
    RequireStored(catalogue, imported);
    RequireForetold(catalogue, bytes, imported);
    ExportAndImportAgain(*store);
    MakeChannels(bytes);
}

}  // namespace

}  // namespace commtest::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    commtest::fuzz::Run({reinterpret_cast<const char*>(data), size});
    return 0;
}
