#include "catalogue/csv_lines.h"

#include <algorithm>

#include "catalogue/number_columns.h"

namespace commtest {

std::optional<std::vector<StoreValue>> CsvReader::Next() {
    while (TakesLineEnd()) {
    }
    if (place_ >= text_.size()) return std::nullopt;
    line_ = nextLine_;
    std::vector<StoreValue> fields = {NextField()};
    while (place_ < text_.size() && text_[place_] == u',') {
        ++place_;
        fields.push_back(NextField());
    }
    TakesLineEnd();
    return fields;
}

StoreValue CsvReader::NextField() {
    if (place_ < text_.size() && text_[place_] == u'"') return QuotedRest();
    const std::size_t end = std::min(text_.find_first_of(u",\r\n", place_), text_.size());
    const TextView field = text_.substr(place_, end - place_);
    place_ = end;
    if (field.empty()) return std::nullopt;
    return Text(field);
}

// What stands between the closing quote and the comma belongs to the field.
Text CsvReader::QuotedRest() {
    Text field;
    bool isQuoted = true;
    for (++place_; place_ < text_.size(); ++place_) {
        const char16_t character = text_[place_];
        const bool isDoubled = place_ + 1 < text_.size() && text_[place_ + 1] == u'"';
        if (character == u'"' && isQuoted && isDoubled) {
            ++place_;
        } else if (character == u'"') {
            isQuoted = !isQuoted;
            continue;
        } else if (!isQuoted && (character == u',' || character == u'\r' || character == u'\n')) {
            break;
        }
        if (character == u'\n') ++nextLine_;
        field += character;
    }
    if (isQuoted) isWhole_ = false;
    return field;
}

bool CsvReader::TakesLineEnd() {
    const std::size_t before = place_;
    if (place_ < text_.size() && text_[place_] == u'\r') ++place_;
    if (place_ < text_.size() && text_[place_] == u'\n') ++place_;
    if (place_ == before) return false;
    ++nextLine_;
    return true;
}

Text CsvLineOf(const std::vector<StoreValue>& values, const std::vector<Text>& columns) {
    Text line;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (i > 0) line += u',';
        if (!values[i]) continue;
        const bool isPlain = !columns.empty() && IsNumberColumn(columns[i]);
        if (isPlain && WholeNumberOf(*values[i]) == values[i]) {
            line += *values[i];
            continue;
        }
        line += u'"';
        for (const char16_t character : *values[i]) line += Text(character == u'"' ? 2 : 1, character);
        line += u'"';
    }
    return line;
}

}  // namespace commtest
