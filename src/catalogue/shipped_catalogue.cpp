#include "catalogue/shipped_catalogue.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <string>
#include <vector>

#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/statements.h"
#include "runtime/runtime_error.h"
#include "session/face.h"

namespace commtest {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view Trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// One line that says something: neither empty nor a remark.
struct Line {
    std::string_view file;
    int number = 0;  // from 1
    std::string_view text;
};

[[noreturn]] void Refuse(const Line& line, const std::string& expected) {
    throw CatalogueFileError(std::string(line.file) + ":" + std::to_string(line.number) + ": expected " +
                             expected + ", found \"" + std::string(line.text) + "\"");
}

std::vector<Line> LinesOf(const CatalogueFile& file) {
    std::vector<Line> lines;
    std::string_view rest = file.content;
    for (int number = 1; !rest.empty(); ++number) {
        const auto end = rest.find('\n');
        const std::string_view text = Trimmed(rest.substr(0, end));
        if (!text.empty() && text.front() != '#') lines.push_back({file.name, number, text});
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    return lines;
}

using Fields = std::vector<std::string_view>;

// The fields of a line, as many as `expected` names (the names stand with " | " between them).
Fields FieldsOf(const Line& line, const std::string& expected) {
    const auto bars = [](std::string_view text) { return std::count(text.begin(), text.end(), '|'); };
    if (bars(line.text) != bars(expected)) Refuse(line, expected);
    Fields fields;
    std::string_view rest = line.text;
    for (auto bar = rest.find('|'); bar != std::string_view::npos; bar = rest.find('|')) {
        fields.push_back(Trimmed(rest.substr(0, bar)));
        rest = rest.substr(bar + 1);
    }
    fields.push_back(Trimmed(rest));
    return fields;
}

void RequireField(const Line& line, bool good, const std::string& expected) {
    if (!good) Refuse(line, expected);
}

bool IsOneOf(std::string_view text, std::string_view characters) {
    return !text.empty() && text.find_first_not_of(characters) == std::string_view::npos;
}

bool IsDigits(std::string_view text) { return IsOneOf(text, "0123456789"); }
bool IsHex(std::string_view text) { return IsOneOf(text, "0123456789ABCDEF"); }

bool IsDate(std::string_view text) {
    if (text.size() != 10) return false;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool isHyphen = place == 4 || place == 7;
        if (isHyphen ? text[place] != '-' : !IsDigits(text.substr(place, 1))) return false;
    }
    return true;
}

bool IsLimit(std::string_view text) {
    double limit = 0;
    const char* end = text.data() + text.size();
    return text.empty() || std::from_chars(text.data(), end, limit).ptr == end;
}

// A row of a settings table: 字段, 宽度, 合并, 对齐.
struct SettingRow {
    Text field;
    Text width;
    Text merge = u"0";
    Text alignment = u"0";
};

constexpr const char* kProtocolForm = "code | name";

std::vector<SettingRow> ProtocolSettings(const std::vector<Line>& lines) {
    std::vector<SettingRow> rows;
    for (const Line& line : lines) {
        const Fields fields = FieldsOf(line, kProtocolForm);
        RequireField(line, IsDigits(fields[0]) && fields[0].size() == 2, "a code of two digits");
        rows.push_back({FromUtf8(fields[1]), FromUtf8(fields[0])});
    }
    return rows;
}

std::vector<SettingRow> DataTypeSettings(const std::vector<Line>& lines) {
    std::vector<SettingRow> rows;
    for (const Line& line : lines) rows.push_back({FromUtf8(line.text), u"0"});
    return rows;
}

std::vector<SettingRow> ColumnSettings(const std::vector<Line>& lines) {
    std::vector<SettingRow> rows;
    for (const Line& line : lines) {
        const Fields fields = FieldsOf(line, "heading | width | merge | alignment");
        RequireField(line, IsDigits(fields[1]) && IsDigits(fields[2]) && IsDigits(fields[3]),
                     "numbers for width, merge and alignment");
        rows.push_back({FromUtf8(fields[0]), FromUtf8(fields[1]), FromUtf8(fields[2]), FromUtf8(fields[3])});
    }
    return rows;
}

// Reads the files one by one into the store. The settings come first: an instrument names its protocol and
// its class by their numbers.
class Filler {
  public:
    explicit Filler(Store& store) : store_(store), catalogue_(store) {}

    void AddProtocols(const std::vector<Line>& lines) {
        AddSettings(u"协议规定", ProtocolSettings(lines));
        for (const Line& line : lines) {
            const Fields fields = FieldsOf(line, kProtocolForm);
            protocols_[std::string(fields[0])] = FromUtf8(fields[1]);
        }
    }

    void AddDataTypes(const std::vector<Line>& lines) { AddSettings(u"数据类型", DataTypeSettings(lines)); }

    void AddGridColumns(TextView table, const std::vector<Line>& lines) {
        AddSettings(table, u"仪表通信", ColumnSettings(lines));
    }

    void AddReplacements(const std::vector<Line>& lines) {
        for (const Line& line : lines) {
            const Fields fields = FieldsOf(line, "text to find | text to put");
            store_.AddRow(u"字符_替换", {u"原字符", u"新字符"}, {FromUtf8(fields[0]), FromUtf8(fields[1])});
        }
    }

    void AddClasses(const std::vector<Line>& lines) {
        for (const Line& line : lines) {
            const Fields fields = FieldsOf(line, "number | name");
            RequireField(line, IsDigits(fields[0]) && fields[0].size() == 2, "a number of two digits");
            catalogue_.AddClass(FromUtf8(fields[1]), std::stoi(std::string(fields[0])));
            classes_[std::string(fields[0])] = FromUtf8(fields[1]);
        }
    }

    void AddInstrument(const std::vector<Line>& lines) {
        if (lines.empty()) return;
        InstrumentRecord instrument = InstrumentOf(lines.front());
        instrument.id = ++lastInstrument_;
        catalogue_.AddInstrument(instrument);
        for (auto line = lines.begin() + 1; line != lines.end(); ++line) {
            ParameterRecord parameter = ParameterOf(*line);
            parameter.id = ++lastParameter_;
            parameter.instrumentId = instrument.id;
            catalogue_.AddParameter(parameter);
        }
    }

    void AddChips(const std::vector<Line>& lines) {
        for (const Line& line : lines) {
            const Fields fields = FieldsOf(line, "code | file | date | example | attribute | purpose");
            RequireField(line, IsDigits(fields[0]), "a code of digits");
            RequireField(line, IsDate(fields[2]), "a date as 2026-06-02");
            store_.AddRow(u"仪表_芯片", {u"编号", u"文件名", u"日期", u"实例", u"属性", u"功能简述"},
                          {FromUtf8(fields[0]), FromUtf8(fields[1]), FromUtf8(fields[2]), FromUtf8(fields[3]),
                           FromUtf8(fields[4]), FromUtf8(fields[5])});
        }
    }

  private:
    // Rows that all faces have.
    void AddSettings(const Text& use, const std::vector<SettingRow>& rows) {
        for (const TextView table : {kSettingsTable, kEnglishSettingsTable}) AddSettings(table, use, rows);
    }

    void AddSettings(TextView table, const Text& use, const std::vector<SettingRow>& rows) {
        const Text name = NameInStatement(store_.Engine(), table);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const auto& [field, width, merge, alignment] = rows[row];
            store_.AddRow(name, {u"使用", u"列号", u"字段", u"宽度", u"合并", u"对齐"},
                          {use, FromUtf8(std::to_string(row)), field, width, merge, alignment});
        }
    }

    InstrumentRecord InstrumentOf(const Line& line) const {
        const Fields fields = FieldsOf(line, "code | name");
        const std::string code(fields[0]);
        RequireField(line, IsDigits(code) && code.size() >= 6, "a code of at least six digits");
        const auto protocol = protocols_.find(code.substr(0, 2));
        RequireField(line, protocol != protocols_.end(), "a code that begins with that of a protocol");
        const auto itsClass = classes_.find(code.substr(4, 2));
        RequireField(line, itsClass != classes_.end(),
                     "a code with the number of a class behind four digits");

        InstrumentRecord instrument;
        instrument.name = FromUtf8(fields[1]);
        instrument.code = FromUtf8(code);
        instrument.protocol = protocol->second;
        instrument.sortKey = FromUtf8(protocol->first);
        instrument.className = itsClass->second;
        instrument.classId = FromUtf8(itsClass->first);
        return instrument;
    }

    static ParameterRecord ParameterOf(const Line& line) {
        const Fields fields =
            FieldsOf(line, "name | address | length | attribute | decimal point | lower limit | upper limit");
        RequireField(line, !fields[0].empty(), "a name");
        RequireField(line, IsHex(fields[1]) && fields[1].size() == 4,
                     "an address of four hexadecimal digits");
        RequireField(line, IsDigits(fields[2]) && fields[2].size() == 1, "a length of one digit");
        RequireField(line, IsOneOf(fields[3], "DRSW"), "an attribute of the letters D, R, S and W");
        RequireField(line, IsHex(fields[4]), "a decimal point in hexadecimal digits");
        RequireField(line, IsLimit(fields[5]) && IsLimit(fields[6]), "limits that are numbers or nothing");

        ParameterRecord parameter;
        parameter.name = FromUtf8(fields[0]);
        parameter.address = FromUtf8(fields[1]);
        parameter.length = FromUtf8(fields[2]);
        parameter.attribute = FromUtf8(fields[3]);
        parameter.decimalPoint = FromUtf8(fields[4]);
        parameter.lowerLimit = FromUtf8(fields[5]);
        parameter.upperLimit = FromUtf8(fields[6]);
        return parameter;
    }

    Store& store_;
    InstrumentCatalogue catalogue_;
    std::map<std::string, Text> protocols_;  // by code
    std::map<std::string, Text> classes_;    // by number
    int lastInstrument_ = 0;
    int lastParameter_ = 0;
};

// The lines of the file of that name, which must be there.
std::vector<Line> LinesOfFile(std::span<const CatalogueFile> files, std::string_view name) {
    for (const CatalogueFile& file : files) {
        if (file.name == name) return LinesOf(file);
    }
    throw CatalogueFileError(std::string(name) + ": expected a file of this name, found none");
}

std::string_view ColumnFileOf(TextView table) {
    return table == kEnglishSettingsTable ? "grid_columns_english.txt" : "grid_columns.txt";
}

void AddFiles(Store& store, std::span<const CatalogueFile> files) {
    Filler filler(store);
    filler.AddProtocols(LinesOfFile(files, "protocols.txt"));
    filler.AddDataTypes(LinesOfFile(files, "data_types.txt"));
    for (const TextView table : {kSettingsTable, kEnglishSettingsTable})
        filler.AddGridColumns(table, LinesOfFile(files, ColumnFileOf(table)));
    filler.AddReplacements(LinesOfFile(files, "replacements.txt"));
    filler.AddClasses(LinesOfFile(files, "classes.txt"));
    filler.AddChips(LinesOfFile(files, "chips.txt"));
    for (const CatalogueFile& file : files) {
        if (file.name.starts_with("instruments/")) filler.AddInstrument(LinesOf(file));
    }
}

std::vector<SettingRow> SettingsOf(TextView table, SettingsUse use) {
    const auto files = ShippedCatalogueFiles();
    switch (use) {
        case SettingsUse::Protocols: return ProtocolSettings(LinesOfFile(files, "protocols.txt"));
        case SettingsUse::DataTypes: return DataTypeSettings(LinesOfFile(files, "data_types.txt"));
        case SettingsUse::GridColumns: return ColumnSettings(LinesOfFile(files, ColumnFileOf(table)));
    }
    return {};
}

}  // namespace

StoreRows ShippedSettings(TextView table, SettingsUse use) {
    StoreRows settings{{u"字段", u"宽度", u"列号", u"合并", u"对齐"}, {}};
    for (const auto& [field, width, merge, alignment] : SettingsOf(table, use)) {
        const Text number = FromUtf8(std::to_string(settings.rows.size()));
        settings.rows.push_back({field, width, number, merge, alignment});
    }
    return settings;
}

void FillCatalogue(Store& store, std::span<const CatalogueFile> files) {
    const PatienceScope patience(store, Patience::Unlimited);
    store.BeginTransaction();
    try {
        KeepOthersFromRewriting(store);
        CreateCatalogueTables(store);
        AddFiles(store, files);
        store.Commit();
    } catch (...) {
        PassOverError([&] { store.Rollback(); });
        throw;
    }
}

void FillWithShippedCatalogue(Store& store) { FillCatalogue(store, ShippedCatalogueFiles()); }

}  // namespace commtest
