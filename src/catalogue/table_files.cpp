#include "catalogue/table_files.h"

#include <algorithm>
#include <set>

#include "catalogue/catalogue_schema.h"
#include "catalogue/csv_lines.h"
#include "catalogue/number_columns.h"
#include "catalogue/statements.h"
#include "runtime/code_page.h"
#include "runtime/runtime_error.h"
#include "session/face.h"

namespace commtest {

namespace {

constexpr TextView kOwner = u"仪表ID";  // of a parameter
constexpr TextView kParameterTable = u"仪表_参数";
constexpr TextView kInstrumentTable = u"仪表_名称";

using Kind = TableFinding::Kind;

// The rows of one file on their way into their table.
class Loading {
  public:
    Loading(Store& store, const Text& table, const std::set<Text>& instruments,
            const std::function<void(const TableFinding&)>& found, const RowProgress& progress)
        : store_(store),
          table_(table),
          key_(KeyOfTable(table)),
          instruments_(instruments),
          found_(found),
          progress_(progress) {}

    int Run(TextView text) {
        CsvReader reader(text);
        const auto heading = reader.Next();
        if (!heading) {
            Tell(Kind::NoHeading, 0);
            return 0;
        }
        TakeHeading(*heading);
        if (!key_.empty() && PlaceOf(key_) == columns_.size()) {
            Tell(Kind::NoKeyColumn, 1, key_);
            return 0;
        }
        while (const auto fields = reader.Next()) TakeRow(reader, *fields, heading->size());
        return rows_;
    }

    const std::set<Text>& Keys() const { return keys_; }

  private:
    void Tell(Kind kind, int line, const Text& column = {}, const Text& value = {}) const {
        found_({kind, table_, line, column, value});
    }

    void TakeHeading(const std::vector<StoreValue>& heading) {
        const std::vector<Text>& known = ColumnsOfTable(table_);
        for (std::size_t field = 0; field < heading.size(); ++field) {
            const Text name = Trim(heading[field].value_or(Text()));
            const auto column = std::find_if(known.begin(), known.end(),
                                             [&](const Text& each) { return IsSameColumn(each, name); });
            if (column == known.end()) {
                Tell(Kind::UnknownColumn, 1, name);
            } else if (PlaceOf(*column) == columns_.size()) {
                columns_.push_back(*column);
                fields_.push_back(field);
            }
        }
        for (const Text& column : known)
            if (PlaceOf(column) == columns_.size() && column != key_) Tell(Kind::MissingColumn, 1, column);
    }

    std::size_t PlaceOf(TextView column) const {
        return static_cast<std::size_t>(std::find(columns_.begin(), columns_.end(), column) -
                                        columns_.begin());
    }

    void TakeRow(const CsvReader& reader, const std::vector<StoreValue>& fields, std::size_t wanted) {
        if (!reader.IsWhole()) return Tell(Kind::OpenQuote, reader.Line());
        if (fields.size() != wanted) return Tell(Kind::FieldCount, reader.Line());
        std::vector<StoreValue> values;
        for (const std::size_t field : fields_) values.push_back(fields[field]);
        if (!HasGoodKeys(values, reader.Line())) return;
        for (std::size_t i = 0; i < values.size(); ++i) MakeNumber(columns_[i], values[i], reader.Line());
        store_.AddRow(NameInStatement(store_.Engine(), table_), columns_, values);
        ++rows_;
        if (progress_) progress_(table_, rows_);
    }

    bool HasGoodKeys(std::vector<StoreValue>& values, int line) {
        if (key_.empty()) return true;
        StoreValue& key = values[PlaceOf(key_)];
        const StoreValue number = WholeNumberOf(key.value_or(Text()));
        if (!number) {
            Tell(Kind::KeyIsNoNumber, line, key_, key.value_or(Text()));
            return false;
        }
        if (table_ == kParameterTable && !HasOwner(values, line)) return false;
        if (!keys_.insert(*number).second) {
            Tell(Kind::KeyTwice, line, key_, *number);
            return false;
        }
        return true;
    }

    bool HasOwner(const std::vector<StoreValue>& values, int line) const {
        const std::size_t place = PlaceOf(kOwner);
        const Text owner = place < values.size() ? values[place].value_or(Text()) : Text();
        const StoreValue number = WholeNumberOf(owner);
        if (number && instruments_.contains(*number)) return true;
        Tell(Kind::NoInstrument, line, Text(kOwner), owner);
        return false;
    }

    void MakeNumber(const Text& column, StoreValue& value, int line) const {
        if (!value || !IsNumberColumn(column)) return;
        const StoreValue number = WholeNumberOf(*value);
        if (!number && !value->empty()) Tell(Kind::NoNumber, line, column, *value);
        value = number;
    }

    Store& store_;
    Text table_;
    Text key_;
    const std::set<Text>& instruments_;
    const std::function<void(const TableFinding&)>& found_;
    const RowProgress& progress_;
    std::vector<Text> columns_;        // of the table that the file has
    std::vector<std::size_t> fields_;  // where they stand in a line
    std::set<Text> keys_;
    int rows_ = 0;
};

std::vector<TableSize> FillTables(Store& store, const TableFile& file,
                                  const std::function<void(const TableFinding&)>& found,
                                  const RowProgress& progress) {
    std::vector<TableSize> sizes;
    std::set<Text> instruments;
    for (const Text& table : TablesToFill()) {
        const std::optional<std::string> bytes = file(table);
        Loading loading(store, table, instruments, found, progress);
        // Few bring the settings of the English face, which has its own without them.
        if (!bytes && table != kEnglishSettingsTable) found({Kind::NoFile, table, 0, {}, {}});
        sizes.push_back({table, bytes ? loading.Run(FromFileBytes(*bytes)) : 0});
        CountKeysOnwards(store, table);
        if (table == kInstrumentTable) instruments = loading.Keys();
    }
    return sizes;
}

}  // namespace

std::vector<TableSize> LoadTables(Store& store, const TableFile& file,
                                  const std::function<void(const TableFinding&)>& found,
                                  const RowProgress& progress) {
    const PatienceScope patience(store, Patience::Unlimited);
    store.BeginTransaction();
    try {
        CreateCatalogueTables(store);
        std::vector<TableSize> sizes = FillTables(store, file, found, progress);
        store.Commit();
        return sizes;
    } catch (...) {
        PassOverError([&] { store.Rollback(); });
        throw;
    }
}

void DumpTable(Store& store, const Text& table, const std::function<void(const std::string&)>& write) {
    const PatienceScope patience(store, Patience::Unlimited);
    const std::vector<Text>& columns = ColumnsOfTable(table);
    write(ToUtf8(CsvLineOf(std::vector<StoreValue>(columns.begin(), columns.end()), {})) + "\n");
    Text names;
    for (const Text& column : columns) names += (names.empty() ? u"" : u",") + column;
    const Text key = KeyOfTable(table);
    const auto rows =
        store.OpenCursor(u"SELECT " + names + u" From " + NameInStatement(store.Engine(), table) +
                         (key.empty() ? u"" : u" Order By " + key));
    std::vector<StoreValue> values(columns.size());
    while (rows->Next()) {
        for (std::size_t i = 0; i < values.size(); ++i) values[i] = rows->ValueAt(i);
        write(ToUtf8(CsvLineOf(values, columns)) + "\n");
    }
}

}  // namespace commtest
