#include "runtime/code_page.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>

namespace commtest {

namespace {

constexpr char kUnmappable = '?';

class Converter {
  public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
    ~Converter() {
        if (handle_ != kNone) iconv_close(handle_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Converts one whole character; gives the bytes written, 0 if the input is none.
    std::size_t Convert(std::string_view in, char* out, std::size_t room) {
        if (handle_ == kNone) return 0;
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        std::string copy(in);
        char* source = copy.data();
        std::size_t left = copy.size();
        char* target = out;
        std::size_t free = room;
        const bool good = iconv(handle_, &source, &left, &target, &free) != static_cast<std::size_t>(-1);
        return good && left == 0 ? room - free : 0;
    }

  private:
    static inline const iconv_t kNone = reinterpret_cast<iconv_t>(-1);
    iconv_t handle_;
};

struct Tables {
    std::array<std::uint16_t, 0x10000> codeOf{};  // by UTF-16 unit; 0 but for unit 0: unmappable
    std::array<char16_t, 0x10000> characterOf{};  // by code; 0: no such code
};

void Enter(Tables& tables, Converter& converter, unsigned code, std::string_view bytes) {
    char utf8[8];
    const std::size_t length = converter.Convert(bytes, utf8, sizeof utf8);
    const Text text = FromUtf8(std::string_view(utf8, length));
    if (text.size() != 1) return;
    tables.characterOf[code] = text[0];
    tables.codeOf[text[0]] = static_cast<std::uint16_t>(code);
}

std::unique_ptr<const Tables> MakeTables() {
    auto tables = std::make_unique<Tables>();
    Converter converter("UTF-8", "CP936");
    for (unsigned byte = 0; byte < 0x80; ++byte) {
        tables->characterOf[byte] = static_cast<char16_t>(byte);
        tables->codeOf[byte] = static_cast<std::uint16_t>(byte);
    }
    for (unsigned lead = 0x80; lead < 0xFF; ++lead) {
        const char first = static_cast<char>(lead);
        Enter(*tables, converter, lead, {&first, 1});
        for (unsigned trail = 0x40; trail < 0xFF; ++trail) {
            const char both[] = {first, static_cast<char>(trail)};
            Enter(*tables, converter, lead << 8 | trail, {both, 2});
        }
    }
    return tables;
}

const Tables& CodePage() {
    static const std::unique_ptr<const Tables> tables = MakeTables();
    return *tables;
}

bool IsPair(TextView text) {
    return text.size() > 1 && (text[0] & 0xFC00) == 0xD800 && (text[1] & 0xFC00) == 0xDC00;
}

}  // namespace

int CharacterCode(char16_t character) {
    if (character < 0x80) return character;
    const int code = CodePage().codeOf[character];
    return code == 0 ? kUnmappable : code;
}

std::string ToCodePage(TextView text) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int code = CharacterCode(text[i]);
        if (code > 0xFF) bytes += static_cast<char>(code >> 8);
        bytes += static_cast<char>(code & 0xFF);
        if (IsPair(text.substr(i))) ++i;  // one "?" for both halves
    }
    return bytes;
}

Text FromCodePage(std::string_view bytes) {
    const Tables& page = CodePage();
    Text text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto lead = static_cast<unsigned char>(bytes[i]);
        unsigned code = lead;
        const bool isPair = lead > 0x80 && i + 1 < bytes.size() &&
                            page.characterOf[lead << 8 | static_cast<unsigned char>(bytes[i + 1])] != 0;
        if (isPair) code = code << 8 | static_cast<unsigned char>(bytes[++i]);
        const char16_t character = page.characterOf[code];
        text += character == 0 && code != 0 ? u'\uFFFD' : character;
    }
    return text;
}

bool IsUtf8(std::string_view bytes) { return !Contains(FromUtf8(bytes), u"\uFFFD"); }

Text FromFileBytes(std::string_view bytes) {
    if (bytes.starts_with(kUtf8Mark)) return FromUtf8(bytes.substr(kUtf8Mark.size()));
    return IsUtf8(bytes) ? FromUtf8(bytes) : FromCodePage(bytes);
}

}  // namespace commtest
