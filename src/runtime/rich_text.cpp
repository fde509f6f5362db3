#include "runtime/rich_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

#include "runtime/code_page.h"

namespace commtest {

namespace {

// --- Writing ---

constexpr std::string_view kBeginning =
    "{\\rtf1\\ansi\\ansicpg936\\deff0{\\fonttbl{\\f0\\fmodern Monospace;}}\\uc1\\f0\\fs20\n";
constexpr std::string_view kEnd = "}\n";
constexpr std::string_view kParagraph = "\\par\n";
constexpr char16_t kPictures = 0x2400;
constexpr char16_t kDelete = 0x7F;
constexpr char16_t kPictureOfDelete = 0x2421;

// A number is signed and of 16 bits; the "?" is for a reader that does not know the word.
std::string UnicodeWord(char16_t unit) {
    return "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "?";
}

std::string WordOf(char16_t unit) {
    if (unit == u'\t') return "\\tab ";
    if (unit < u' ') return UnicodeWord(static_cast<char16_t>(kPictures + unit));
    if (unit == kDelete) return UnicodeWord(kPictureOfDelete);
    if (unit > kDelete) return UnicodeWord(unit);
    const char character = static_cast<char>(unit);
    const bool isSpecial = character == '\\' || character == '{' || character == '}';
    return isSpecial ? std::string{'\\', character} : std::string{character};
}

// --- Reading ---

constexpr std::string_view kMark = "{\\rtf";

// What a control says in plain text.
struct Meaning {
    std::string_view control;
    TextView text;
};

constexpr Meaning kMeanings[] = {
    {"\\", u"\\"},
    {"{", u"{"},
    {"}", u"}"},
    {"~", u"\u00A0"},
    {"_", u"-"},
    {"tab", u"\t"},
    {"cell", u"\t"},
    {"row", kLineEnd},
    {"par", kLineEnd},
    {"line", kLineEnd},
    {"sect", kLineEnd},
    {"page", kLineEnd},
    {"\r", kLineEnd},
    {"\n", kLineEnd},
    {"lquote", u"\u2018"},
    {"rquote", u"\u2019"},
    {"ldblquote", u"\u201C"},
    {"rdblquote", u"\u201D"},
    {"bullet", u"\u2022"},
    {"endash", u"\u2013"},
    {"emdash", u"\u2014"},
};

// Controls at the head of a group that holds no text. "*" stands before those that a reader may not know.
constexpr std::string_view kHiding[] = {"*", "fonttbl", "colortbl", "stylesheet", "info", "pict"};

TextView TextOf(std::string_view control) {
    for (const Meaning& meaning : kMeanings) {
        if (meaning.control == control) return meaning.text;
    }
    return {};
}

bool Hides(std::string_view control) {
    return std::find(std::begin(kHiding), std::end(kHiding), control) != std::end(kHiding);
}

bool IsLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// A control behind its backslash: a word with its number, or one other character.
struct Control {
    std::string_view name;
    std::optional<int> number;
};

// Reads a document from front to back.
class Reader {
  public:
    explicit Reader(std::string_view document) : rest_(document) {}

    Text Read() {
        while (!rest_.empty()) ReadNext();
        PutBytes();
        return std::move(text_);
    }

  private:
    struct Group {
        bool isHidden = false;
        int fallbackLength = 1;  // characters behind a Unicode number, for readers that do not know it
    };

    std::string_view Take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    void ReadNext() {
        const char character = Take(1).front();
        if (character == '{') return OpenGroup();
        if (character == '}') return CloseGroup();
        if (character == '\\') return Obey(TakeControl());
        const bool isControl = static_cast<unsigned char>(character) < ' ' && character != '\t';
        if (!isControl) AddByte(character);
    }

    void OpenGroup() {
        fallbackLeft_ = 0;
        groups_.push_back(groups_.back());
    }

    void CloseGroup() {
        fallbackLeft_ = 0;
        if (groups_.size() > 1) groups_.pop_back();
        const bool isEnd = groups_.size() == 1;
        if (isEnd) rest_ = {};
    }

    Control TakeControl() {
        const auto behindWord = std::find_if_not(rest_.begin(), rest_.end(), IsLetter);
        const auto letters = static_cast<std::size_t>(behindWord - rest_.begin());
        if (letters == 0) return {Take(1), {}};
        const std::string_view name = Take(letters);
        const std::optional<int> number = TakeNumber();
        if (rest_.starts_with(' ')) Take(1);
        return {name, number};
    }

    std::optional<int> TakeNumber() {
        int number = 0;
        const auto [end, error] = std::from_chars(rest_.data(), rest_.data() + rest_.size(), number);
        Take(static_cast<std::size_t>(end - rest_.data()));
        return error == std::errc() ? std::optional(number) : std::nullopt;
    }

    void Obey(const Control& control) {
        const int number = std::max(control.number.value_or(0), 0);
        if (control.name == "'") return AddHexByte();
        if (control.name == "u" && control.number) return AddUnit(*control.number);
        if (control.name == "bin") Take(static_cast<std::size_t>(number));
        if (fallbackLeft_ > 0) {
            --fallbackLeft_;
        } else if (control.name == "uc") {
            groups_.back().fallbackLength = number;
        } else if (Hides(control.name)) {
            groups_.back().isHidden = true;
        } else {
            Add(TextOf(control.name));
        }
    }

    void AddHexByte() {
        unsigned char byte = 0;
        const std::string_view digits = rest_.substr(0, 2);
        const char* const end = digits.data() + digits.size();
        if (digits.size() < 2 || std::from_chars(digits.data(), end, byte, 16).ptr != end) return;
        Take(digits.size());
        AddByte(static_cast<char>(byte));
    }

    void AddUnit(int number) {
        const auto unit = static_cast<char16_t>(number);
        Add({&unit, 1});
        fallbackLeft_ = groups_.back().fallbackLength;
    }

    void AddByte(char byte) {
        if (fallbackLeft_ > 0) {
            --fallbackLeft_;
        } else if (!groups_.back().isHidden) {
            bytes_ += byte;
        }
    }

    void Add(TextView text) {
        if (groups_.back().isHidden || text.empty()) return;
        PutBytes();
        text_ += text;
    }

    void PutBytes() {
        text_ += FromCodePage(bytes_);
        bytes_.clear();
    }

    std::string_view rest_;
    std::vector<Group> groups_{Group()};  // the first stands around the document
    int fallbackLeft_ = 0;                // characters still to be passed over
    std::string bytes_;                   // of characters of the code page, not yet text: one may take two
    Text text_;
};

}  // namespace

std::string RichTextOf(TextView text) {
    std::string document(kBeginning);
    while (!text.empty()) {
        const bool isLineEnd = text.front() == u'\r' || text.front() == u'\n';
        document += isLineEnd ? std::string(kParagraph) : WordOf(text.front());
        text.remove_prefix(text.starts_with(kLineEnd) ? kLineEnd.size() : 1);
    }
    document += kEnd;
    return document;
}

bool IsRichText(std::string_view bytes) { return bytes.starts_with(kMark); }

Text PlainTextOf(std::string_view richText) { return Reader(richText).Read(); }

}  // namespace commtest
