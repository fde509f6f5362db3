#include "catalogue/catalogue_backup.h"

#include <algorithm>
#include <optional>

#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/statements.h"
#include "catalogue/table_copy.h"
#include "host/file_names.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

constexpr TextView kMomentForm = u"00000000-000000";  // "0" for any digit
constexpr TextView kInstrumentTable = u"仪表_名称";
constexpr TextView kParameterTable = u"仪表_参数";

Text Digits(int number, int width) { return FittedToWidth(WholeText(number), width); }

Text NameBeginning() { return Text(kCatalogueFileName) + Text(kCatalogueCopyMark); }

Text NameOf(const DateTime& moment) {
    return NameBeginning() + Digits(moment.year, 4) + Digits(moment.month, 2) + Digits(moment.day, 2) + u"-" +
           Digits(moment.hour, 2) + Digits(moment.minute, 2) + Digits(moment.second, 2);
}

Text FreeName(const ProgramFiles& files, const DateTime& moment) {
    const Text first = NameOf(moment);
    Text name = first;
    for (int turn = 2; files.Exists(name); ++turn) name = first + u"-" + WholeText(turn);
    return name;
}

bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

// What stands behind the beginning of a name is a moment, or a moment and a turn.
bool IsOfACopy(TextView rest) {
    if (rest.size() < kMomentForm.size()) return false;
    for (std::size_t i = 0; i < kMomentForm.size(); ++i) {
        if (kMomentForm[i] == u'0' ? !IsDigit(rest[i]) : rest[i] != kMomentForm[i]) return false;
    }
    const TextView turn = rest.substr(kMomentForm.size());
    if (turn.empty()) return true;
    return turn.size() > 1 && turn[0] == u'-' && std::all_of(turn.begin() + 1, turn.end(), IsDigit);
}

// A later turn of the same moment has a longer name, or one of the same length with a higher number.
bool IsYounger(const Text& one, const Text& other) {
    const std::size_t moment = NameBeginning().size() + kMomentForm.size();
    const int order = one.compare(0, moment, other, 0, moment);
    if (order != 0) return order > 0;
    return one.size() != other.size() ? one.size() > other.size() : one > other;
}

void CopyRowByRow(Store& store, const Text& path) {
    const auto copy = store.Another();
    copy->Open({StoreAddress::Kind::NewFile, path, {}});
    CopyCatalogueIntoNew(store, *copy);
}

void CopyInto(const Text& path, Store& store) {
    const std::optional<Text> statement = CopyStatement(store.Engine(), path);
    if (statement) {
        store.Execute(*statement);
    } else {
        CopyRowByRow(store, path);
    }
}

// What a program that was killed has left, its journal with it.
void RemoveUnfinishedCopies(ProgramFiles& files) {
    for (const Text& name : files.NamesBeginning(NameBeginning())) {
        if (Contains(name, kUnfinishedCopyMark)) PassOverError([&] { files.Remove(name); });
    }
}

void RemoveOldCopies(ProgramFiles& files, const Text& newest, const Text& spared) {
    std::size_t kept = 1;
    for (const Text& name : CatalogueBackups(files)) {
        if (name != newest && name != spared && ++kept > kKeptCatalogueCopies)
            PassOverError([&] { files.Remove(name); });
    }
}

}  // namespace

Text BackUpCatalogue(Store& store, ProgramFiles& files, const DateTime& now, const Text& spared) {
    const Text name = FreeName(files, now);
    const Text unfinished = name + Text(kUnfinishedCopyMark);
    const PatienceScope patience(store, Patience::Unlimited);
    RemoveUnfinishedCopies(files);
    try {
        CopyInto(files.PathOf(unfinished), store);
        files.Rename(unfinished, name);
    } catch (...) {
        if (files.Exists(unfinished)) PassOverError([&] { files.Remove(unfinished); });
        throw;
    }
    RemoveOldCopies(files, name, spared);
    return name;
}

std::vector<Text> CatalogueBackups(const ProgramFiles& files) {
    const Text beginning = NameBeginning();
    std::vector<Text> names = files.NamesBeginning(beginning);
    std::erase_if(names,
                  [&](const Text& name) { return !IsOfACopy(TextView(name).substr(beginning.size())); });
    std::sort(names.begin(), names.end(), IsYounger);
    return names;
}

void RestoreCatalogue(Store& store, const ProgramFiles& files, const Text& copy) {
    const auto from = store.Another();
    from->Open({StoreAddress::Kind::LocalFile, files.PathOf(copy), CatalogueTables()});
    const PatienceScope patience(store, Patience::Unlimited);
    BeginWriting(store);
    store.BeginTransaction();
    try {
        KeepOthersFromRewriting(store);
        InstrumentCatalogue(store).ClearCatalogue();
        CopyTable(*from, store, Text(kInstrumentTable));
        CopyTable(*from, store, Text(kParameterTable));
        store.Commit();
    } catch (...) {
        PassOverError([&] { store.Rollback(); });
        throw;
    }
}

}  // namespace commtest
