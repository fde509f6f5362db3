#include "cli/json_text.h"

#include <algorithm>
#include <utility>

#include "cli/printable_text.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

bool IsEscaped(char16_t unit) { return unit == u'"' || unit == u'\\' || IsControl(unit); }

std::string Escaped(char16_t unit) {
    switch (unit) {
        case u'"': return "\\\"";
        case u'\\': return "\\\\";
        case u'\n': return "\\n";
        case u'\r': return "\\r";
        case u'\t': return "\\t";
        default: return "\\u" + ToUtf8(FittedToWidth(HexOf(static_cast<double>(unit)), 4));
    }
}

std::string Quoted(TextView text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const auto escaped = std::find_if(text.begin(), text.end(), IsEscaped);
        const auto plain = static_cast<std::size_t>(escaped - text.begin());
        quoted += ToUtf8(text.substr(0, plain));
        if (escaped != text.end()) quoted += Escaped(*escaped);
        text.remove_prefix(std::min(plain + 1, text.size()));
    }
    return quoted + '"';
}

}  // namespace

std::string JsonWriter::Take() { return std::exchange(written_, {}); }

void JsonWriter::PutKey(TextView key) {
    BeginPart();
    written_ += Quoted(key) + ": ";
    place_ = Place::BehindKey;
}

void JsonWriter::PutText(TextView text) {
    BeginPart();
    written_ += Quoted(text);
}

void JsonWriter::PutNumber(std::int64_t number) {
    BeginPart();
    written_ += std::to_string(number);
}

void JsonWriter::PutYesNo(bool isYes) {
    BeginPart();
    written_ += isYes ? "true" : "false";
}

void JsonWriter::PutNull() {
    BeginPart();
    written_ += "null";
}

void JsonWriter::PutText(TextView key, TextView text) {
    PutKey(key);
    PutText(text);
}

void JsonWriter::PutNumber(TextView key, std::int64_t number) {
    PutKey(key);
    PutNumber(number);
}

void JsonWriter::PutYesNo(TextView key, bool isYes) {
    PutKey(key);
    PutYesNo(isYes);
}

void JsonWriter::Begin(char bracket) {
    BeginPart();
    written_ += bracket;
    ++depth_;
    place_ = Place::First;
}

void JsonWriter::End(char bracket) {
    const bool wasBroken = IsBroken();
    --depth_;
    if (wasBroken) BreakLine();
    written_ += bracket;
    place_ = Place::Later;
    if (depth_ > 0) return;
    written_ += '\n';
    place_ = Place::First;
}

void JsonWriter::BeginPart() {
    const bool isLater = place_ == Place::Later;
    if (isLater) written_ += ',';
    if (place_ != Place::BehindKey && IsBroken()) {
        BreakLine();
    } else if (isLater) {
        written_ += ' ';
    }
    place_ = Place::Later;
}

void JsonWriter::BreakLine() {
    written_ += '\n';
    written_.append(layout_.indent * static_cast<std::size_t>(depth_), ' ');
}

}  // namespace commtest
