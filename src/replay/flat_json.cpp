#include "replay/flat_json.h"

#include <algorithm>
#include <charconv>

namespace commtest {

namespace {

class Reader {
  public:
    explicit Reader(std::string_view line) : rest_(line) {}

    std::optional<std::vector<FlatMember>> Object() {
        std::vector<FlatMember> members;
        if (!Takes('{')) return std::nullopt;
        if (!Takes('}')) {
            do {
                FlatMember member;
                if (!TakesMember(member)) return std::nullopt;
                members.push_back(std::move(member));
            } while (Takes(','));
            if (!Takes('}')) return std::nullopt;
        }
        SkipBlanks();
        if (!rest_.empty()) return std::nullopt;
        return members;
    }

  private:
    void SkipBlanks() {
        while (!rest_.empty() && (rest_.front() == ' ' || rest_.front() == '\t' || rest_.front() == '\r')) {
            rest_.remove_prefix(1);
        }
    }

    bool Takes(char mark) {
        SkipBlanks();
        if (rest_.empty() || rest_.front() != mark) return false;
        rest_.remove_prefix(1);
        return true;
    }

    bool TakesWord(std::string_view word) {
        if (!rest_.starts_with(word)) return false;
        rest_.remove_prefix(word.size());
        return true;
    }

    bool TakesMember(FlatMember& member) {
        Text name;
        if (!TakesText(name) || !Takes(':')) return false;
        member.name = ToUtf8(name);
        return TakesValue(member.value);
    }

    bool TakesValue(FlatValue& value) {
        SkipBlanks();
        const bool isYes = TakesWord("true");
        if (isYes || TakesWord("false")) {
            value = isYes;
            return true;
        }
        if (!rest_.empty() && rest_.front() == '"') return TakesText(value.emplace<Text>());
        return TakesNumber(value.emplace<std::int64_t>());
    }

    bool TakesNumber(std::int64_t& number) {
        const auto [stop, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        if (error != std::errc()) return false;
        rest_.remove_prefix(static_cast<std::size_t>(stop - rest_.data()));
        return true;
    }

    bool TakesText(Text& text) {
        if (!Takes('"')) return false;
        while (!rest_.empty() && rest_.front() != '"') {
            const std::size_t plain = std::min(rest_.find_first_of("\"\\"), rest_.size());
            for (const char byte : rest_.substr(0, plain)) {
                if (static_cast<unsigned char>(byte) < 0x20) return false;
            }
            text += FromUtf8(rest_.substr(0, plain));
            rest_.remove_prefix(plain);
            if (!rest_.empty() && rest_.front() == '\\' && !TakesEscape(text)) return false;
        }
        const bool hasHalfPair = FromUtf8(ToUtf8(text)) != text;
        return TakesWord("\"") && !hasHalfPair;
    }

    bool TakesEscape(Text& text) {
        constexpr std::string_view kNames = "\"\\/bfnrt";
        constexpr TextView kMeanings = u"\"\\/\b\f\n\r\t";
        rest_.remove_prefix(1);
        if (rest_.empty()) return false;
        const char name = rest_.front();
        rest_.remove_prefix(1);
        const std::size_t at = kNames.find(name);
        if (at != std::string_view::npos) text += kMeanings[at];
        return at != std::string_view::npos || (name == 'u' && TakesUnit(text));
    }

    bool TakesUnit(Text& text) {
        constexpr std::size_t kDigits = 4;
        if (rest_.size() < kDigits) return false;
        std::uint16_t unit = 0;
        const auto [stop, error] = std::from_chars(rest_.data(), rest_.data() + kDigits, unit, 16);
        if (error != std::errc() || stop != rest_.data() + kDigits) return false;
        rest_.remove_prefix(kDigits);
        text += static_cast<char16_t>(unit);
        return true;
    }

    std::string_view rest_;
};

std::string Quoted(const Text& text) {
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    std::string quoted = "\"";
    for (const char byte : ToUtf8(text)) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20) {
            quoted += std::string("\\u00") + kHexDigits[code / 16] + kHexDigits[code % 16];
            continue;
        }
        if (byte == '"' || byte == '\\') quoted += '\\';
        quoted += byte;
    }
    return quoted + '"';
}

std::string Written(const FlatValue& value) {
    if (const auto* text = std::get_if<Text>(&value)) return Quoted(*text);
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    return std::get<bool>(value) ? "true" : "false";
}

}  // namespace

std::optional<std::vector<FlatMember>> ReadFlatObject(std::string_view line) { return Reader(line).Object(); }

std::string WrittenFlatObject(const std::vector<FlatMember>& members) {
    std::string written = "{";
    for (const FlatMember& member : members) {
        if (written.size() > 1) written += ", ";
        written += Quoted(FromUtf8(member.name)) + ": " + Written(member.value);
    }
    return written + '}';
}

}  // namespace commtest
