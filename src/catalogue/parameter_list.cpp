#include "catalogue/parameter_list.h"

#include <algorithm>

#include "runtime/runtime_error.h"

namespace commtest {

namespace {

constexpr int kLinesToTheType = 30;
constexpr std::size_t kAddressDigits = 4;
constexpr std::size_t kColonColumn = 6;  // texts behind a colon begin behind this position

bool IsHexDigit(char16_t character) {
    return (character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'F') ||
           (character >= u'a' && character <= u'f');
}

bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

TextView WithoutSerial(TextView line) {
    const auto serialEnd = std::find_if_not(line.begin(), line.end(), IsDigit);
    return line.substr(static_cast<std::size_t>(serialEnd - line.begin()));
}

std::size_t PlaceOfAddress(TextView text) {
    std::size_t place = 0;
    while (place < text.size() && !BeginsWithAddress(text.substr(place))) ++place;
    return place;
}

// Q210: behind a colon as many blanks as bring the next text to the seventh position, so that texts line up.
Text NameOf(TextView text) {
    Text name(text);
    std::erase(name, u' ');
    const auto colon = name.find(u':');
    if (colon < kColonColumn) name.insert(colon + 1, kColonColumn - 1 - colon, u' ');
    return name;
}

TextView TakeField(TextView& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(u' '), rest.size()));
    const TextView field = rest.substr(0, rest.find(u' '));
    rest.remove_prefix(field.size());
    return field;
}

}  // namespace

Replacements ReplacementsOf(const StoreRows& rows) {
    Replacements replacements;
    for (std::size_t row = 0; row < rows.rows.size(); ++row)
        replacements.emplace_back(rows.At(row, 0), rows.At(row, 1));
    return replacements;
}

// Q205: an earlier replacement may bring one of the two words in, and then the later ones leave the line
// alone.
void RepairImportLine(Text& line, const Replacements& replacements) {
    for (const auto& [wanted, put] : replacements) {
        const auto place = line.find(wanted);
        if (place == Text::npos || Contains(line, u"三屏") || Contains(line, u"三相")) continue;
        line.replace(place, wanted.size(), put);
    }
}

bool BeginsWithAddress(TextView text) {
    return text.size() >= kAddressDigits && IsHexadecimal(text.substr(0, kAddressDigits));
}

bool IsHexadecimal(TextView text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsHexDigit);
}

// Q206: the first four hexadecimal digits are the address, in a name, too.
ListRow CutListRow(TextView line) {
    TextView rest = WithoutSerial(line);
    const std::size_t place = PlaceOfAddress(rest);
    ListRow row;
    row.name = NameOf(rest.substr(0, place));
    row.address = rest.substr(place, kAddressDigits);
    rest.remove_prefix(std::min(place + kAddressDigits, rest.size()));
    std::vector<TextView> fields;
    for (TextView field = TakeField(rest); !field.empty(); field = TakeField(rest)) fields.push_back(field);
    // Q207: a single field is the attribute.
    if (fields.size() < 2) fields.insert(fields.begin(), u"0");
    Text* const wanted[] = {&row.decimalPoint, &row.attribute, &row.lowerLimit, &row.upperLimit};
    for (std::size_t i = 0; i < std::min(fields.size(), std::size(wanted)); ++i) *wanted[i] = fields[i];
    row.fieldsTooMany = std::max(0, static_cast<int>(fields.size()) - static_cast<int>(std::size(wanted)));
    return row;
}

ListWalk::Step ListWalk::Next() { return isInside_ ? NextInside() : NextOutside(); }

ListWalk::Step ListWalk::NextOutside() {
    const auto line = lines_.Next();
    if (!line) {
        line_.clear();
        return Step::ListEnd;
    }
    line_ = Trim(UCase(*line));
    if (!Contains(line_, u"DEVICE")) return Step::Passed;
    // Q208: a device whose name holds END ends the list.
    if (Contains(line_, u"END")) return Step::ListEnd;
    if (Contains(line_, u"；") || Contains(line_, u";")) return Step::Passed;
    TakeDevice();
    isInside_ = true;
    return Step::Device;
}

// The head is in upper case before it is repaired, a row behind that.
void ListWalk::TakeDevice() {
    deviceLine_ = lines_.Line();
    RepairImportLine(line_, replacements_);
    device_ = {.name = Trim(Behind(line_, u' ')), .code = {}, .hasType = false};
    Text type;
    for (int i = 0; i < kLinesToTheType && !device_.hasType; ++i) {
        type = LineInside();
        device_.hasType = Contains(UCase(type), u"TYPE");
    }
    device_.code = Trim(Behind(type, u' '));
}

ListWalk::Step ListWalk::NextInside() {
    line_ = LineInside();
    RepairImportLine(line_, replacements_);
    line_ = Trim(UCase(line_));
    // Q209: a row whose name holds END ends the block.
    if (Contains(line_, u"END")) {
        isInside_ = false;
        return Step::BlockEnd;
    }
    row_ = CutListRow(line_);
    return Step::Row;
}

Text ListWalk::LineInside() {
    auto line = lines_.Next();
    if (!line) throw RuntimeError(RuntimeError::kPastEndOfFile);
    return *std::move(line);
}

}  // namespace commtest
