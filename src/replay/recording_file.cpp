#include "replay/recording_file.h"

#include <algorithm>
#include <limits>

#include "replay/flat_json.h"
#include "runtime/code_page.h"
#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

namespace {

using Kind = RecordingFault::Kind;

constexpr std::int64_t kFormat = 1;

// The members of one line, each of which is asked for by its name.
class Line {
  public:
    Line(std::string_view bytes, std::size_t number) : number_(number) {
        auto members = ReadFlatObject(bytes);
        if (!members) Refuse(Kind::NoObject);
        members_ = std::move(*members);
    }

    [[noreturn]] void Refuse(Kind kind, const std::string& member = {}) const {
        throw RecordingFileError({kind, number_, member});
    }

    template <typename Value>
    Value Take(const std::string& name) {
        const auto hasName = [&name](const FlatMember& member) { return member.name == name; };
        const auto found = std::find_if(members_.begin(), members_.end(), hasName);
        if (found == members_.end()) Refuse(Kind::MissingMember, name);
        const Value* value = std::get_if<Value>(&found->value);
        if (value == nullptr) Refuse(Kind::WrongValue, name);
        Value taken = *value;
        members_.erase(found);
        if (std::any_of(members_.begin(), members_.end(), hasName)) Refuse(Kind::TwiceTheMember, name);
        return taken;
    }

    Text TakeName(const std::string& name) {
        Text text = Take<Text>(name);
        if (Trim(text).empty() || text.find(u'\0') != Text::npos) Refuse(Kind::WrongValue, name);
        return text;
    }

    void Finish() const {
        if (!members_.empty()) Refuse(Kind::UnknownMember, members_.front().name);
    }

  private:
    std::size_t number_;
    std::vector<FlatMember> members_;
};

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// "2024-05-06"
bool IsDay(const Text& text) {
    constexpr TextView kShape = u"dddd-dd-dd";
    if (text.size() != kShape.size()) return false;
    for (std::size_t i = 0; i < kShape.size(); ++i) {
        const bool fits = kShape[i] == u'd' ? IsDigit(text[i]) : text[i] == kShape[i];
        if (!fits) return false;
    }
    const int month = LeadingWholeNumber(text.substr(5, 2));
    const int day = LeadingWholeNumber(text.substr(8, 2));
    return month >= 1 && month <= 12 && day >= 1 && day <= 31;
}

Text TakeDay(Line& line) {
    Text day = line.Take<Text>("date");
    if (!IsDay(day)) line.Refuse(Kind::WrongValue, "date");
    return day;
}

Text TakeRow(Line& line) {
    const auto row = line.Take<std::int64_t>("row");
    if (row < 0 || row > std::numeric_limits<std::int16_t>::max()) line.Refuse(Kind::WrongValue, "row");
    return WholeText(row);
}

HexText TakeFrame(Line& line, const std::string& name) {
    constexpr std::size_t kByte = 3;  // a blank and two digits
    HexText frame = u" " + UCase(Trim(line.Take<Text>(name)));
    if (frame.size() % kByte != 0 || frame.size() < kByte) line.Refuse(Kind::WrongValue, name);
    for (std::size_t at = 0; at < frame.size(); at += kByte) {
        const bool isByte = frame[at] == u' ' && HexPairValue(TextView(frame).substr(at + 1, 2));
        if (!isByte) line.Refuse(Kind::WrongValue, name);
    }
    return frame;
}

RecordedExchange HeadOf(Line line) {
    if (line.Take<std::int64_t>("format") != kFormat) line.Refuse(Kind::OtherFormat, "format");
    RecordedExchange head;
    head.instrument = line.TakeName("instrument");
    head.protocol = line.TakeName("protocol");
    head.code = line.Take<Text>("code");
    head.note = line.TakeName("note");
    line.Finish();
    return head;
}

RecordedExchange ExchangeOf(Line line, const RecordedExchange& head) {
    RecordedExchange exchange = head;
    exchange.day = TakeDay(line);
    exchange.row = TakeRow(line);
    exchange.request = TakeFrame(line, "request");
    exchange.reply = TakeFrame(line, "reply");
    exchange.isValid = line.Take<bool>("valid");
    line.Finish();
    return exchange;
}

std::string_view WithoutMark(std::string_view bytes) {
    return bytes.starts_with(kUtf8Mark) ? bytes.substr(kUtf8Mark.size()) : bytes;
}

// U+FFFD itself is a character as any other.
bool IsWellFormed(std::string_view line) { return ToUtf8(FromUtf8(line)) == line; }

bool IsEmpty(std::string_view line) { return line.find_first_not_of(" \t\r") == std::string_view::npos; }

}  // namespace

RecordingFile ReadRecordingFile(std::string_view bytes) {
    RecordingFile recording;
    bool hasHead = false;
    std::string_view rest = WithoutMark(bytes);
    for (std::size_t number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (!IsWellFormed(line)) throw RecordingFileError({Kind::NotUtf8, number});
        if (IsEmpty(line)) continue;
        if (hasHead) {
            recording.exchanges.push_back(ExchangeOf(Line(line, number), recording.head));
        } else {
            recording.head = HeadOf(Line(line, number));
            hasHead = true;
        }
    }
    if (!hasHead) throw RecordingFileError({Kind::NoHeader, 1});
    return recording;
}

std::string WrittenRecordingFile(const RecordingFile& recording) {
    const RecordedExchange& head = recording.head;
    std::string written = WrittenFlatObject({{"format", kFormat},
                                             {"instrument", head.instrument},
                                             {"protocol", head.protocol},
                                             {"code", head.code},
                                             {"note", head.note}}) +
                          "\n";
    for (const RecordedExchange& one : recording.exchanges) {
        written += WrittenFlatObject({{"date", one.day},
                                      {"row", std::int64_t{LeadingWholeNumber(one.row)}},
                                      {"request", one.request},
                                      {"reply", one.reply},
                                      {"valid", one.isValid}}) +
                   "\n";
    }
    return written;
}

}  // namespace commtest
