#include "simulator/instrument.h"

#include <algorithm>

#include "simulator/native_frames.h"
#include "simulator/text_fields.h"
#include "simulator/value_codes.h"

namespace simulator {

namespace {

using Kind = Request::Kind;
using Outcome = Answer::Outcome;

constexpr std::size_t kFirstDynamicRow = 5;  // the sixth row of the list
constexpr std::string_view kReadable = "RDS";

bool HasAny(const Parameter& parameter, std::string_view letters) {
    return parameter.attribute.find_first_of(letters) != std::string::npos;
}

bool IsWithinLimits(const Parameter& parameter, double value) {
    return (!parameter.lowest || value >= *parameter.lowest) &&
           (!parameter.highest || value <= *parameter.highest);
}

bool IsCode(std::string_view text, int length) {
    return text.size() == static_cast<std::size_t>(2 * length) &&
           text.find_first_not_of("0123456789ABCDEF") == std::string_view::npos;
}

bool Accepts(const Parameter& parameter, int length, std::string_view code) {
    return HasAny(parameter, "W") && IsCode(code, length) &&
           IsWithinLimits(parameter, DecodeValue(length, code));
}

// Joins the codes to parts of at most `partLength` bytes; there is always one part, if an empty one.
std::deque<std::string> PartsOf(const std::vector<std::string>& codes, std::size_t partLength) {
    std::deque<std::string> parts(1);
    for (const std::string& code : codes) {
        const bool isFull = partLength != 0 && parts.back().size() + code.size() > 2 * partLength;
        if (isFull && !parts.back().empty()) parts.emplace_back();
        parts.back() += code;
    }
    return parts;
}

}  // namespace

Instrument::Instrument(InstrumentDescription description, std::size_t partLength)
    : description_(std::move(description)), partLength_(partLength) {
    GiveDefaultBehaviours(description_);
    for (const Parameter& parameter : description_.parameters) {
        rows_.push_back({parameter, LocationOf(description_.code, parameter.address).value_or(0), {}});
    }
}

std::optional<Answer> Instrument::AnswerFrame(std::string_view frame, std::int64_t timeMs) {
    partsLeft_.clear();
    const auto request = RequestIn(frame);
    if (!request) return std::nullopt;
    return AnswerRequest(*request, timeMs);
}

std::optional<Answer> Instrument::AnswerContinue() {
    if (partsLeft_.empty()) return std::nullopt;
    const std::string data = std::move(partsLeft_.front());
    partsLeft_.pop_front();
    return Answer{Outcome::kRead, Frame("RR" + data, partsLeft_.empty() ? kFrameEnd : kPartEnd)};
}

std::optional<Request> Instrument::RequestIn(std::string_view frame) const {
    const std::string address = AddressText(Address());
    for (const std::string_view text : CheckedTexts(Code(), frame)) {
        if (!text.starts_with(address)) continue;
        if (const auto request = ParseRequest(Code(), text.substr(address.size()))) return request;
    }
    return std::nullopt;
}

Answer Instrument::AnswerRequest(const Request& request, std::int64_t timeMs) {
    switch (request.kind) {
        case Kind::kReadDynamic: return ReadDynamic(timeMs);
        case Kind::kReadStatic: return ReadStatic(timeMs);
        case Kind::kReadParameters: return ReadParameters(request, timeMs);
        case Kind::kWriteParameter: return Write(request);
        case Kind::kCommand: break;
    }
    return Command(request);
}

Answer Instrument::ReadDynamic(std::int64_t timeMs) {
    std::string text = "RD";
    for (const std::string& code : CodesOfRun(kFirstDynamicRow, timeMs)) text += code;
    return {Outcome::kRead, Frame(text, kFrameEnd)};
}

Answer Instrument::ReadStatic(std::int64_t timeMs) {
    const auto first = std::ranges::find(rows_, "RW", [](const Row& row) { return row.parameter.attribute; });
    partsLeft_ = PartsOf(CodesOfRun(static_cast<std::size_t>(first - rows_.begin()), timeMs), partLength_);
    return *AnswerContinue();
}

Answer Instrument::ReadParameters(const Request& request, std::int64_t timeMs) {
    std::string data;
    unsigned location = request.location;
    unsigned bytesLeft = request.byteCount;
    while (const Row* row = FindRow(location)) {
        const auto length = static_cast<unsigned>(row->parameter.length);
        if (!HasAny(row->parameter, kReadable) || length > bytesLeft) break;
        data += CodeOf(*row, timeMs);
        location += length;
        bytesLeft -= length;
    }
    if (data.empty()) return {Outcome::kReadRefused, Frame("**", kFrameEnd)};
    return {Outcome::kRead, Frame("RE" + data, kFrameEnd)};
}

Answer Instrument::Write(const Request& request) {
    Row* row = FindRow(request.location);
    if (row == nullptr || row->parameter.length != request.length) return Verdict(false);
    if (!Accepts(row->parameter, request.length, request.value)) return Verdict(false);
    row->written = request.value;
    return Verdict(true);
}

Answer Instrument::Command(const Request& request) const {
    const auto command = std::ranges::find_if(rows_, [&](const Row& row) {
        return IsCommand(Code(), row.parameter) && row.parameter.length == request.length;
    });
    if (command == rows_.end()) return Verdict(false);
    if (request.value.empty()) return Verdict(true);
    constexpr int kValueLength = 2;
    return Verdict(Accepts(command->parameter, kValueLength, request.value));
}

// A run goes on while rows begin with the same letter as the first; rows of S alone go along.
std::vector<std::string> Instrument::CodesOfRun(std::size_t first, std::int64_t timeMs) const {
    std::vector<std::string> codes;
    for (std::size_t i = first; i < rows_.size(); ++i) {
        const std::string& attribute = rows_[i].parameter.attribute;
        if (attribute.substr(0, 1) != rows_[first].parameter.attribute.substr(0, 1) && attribute != "S")
            break;
        codes.push_back(CodeOf(rows_[i], timeMs));
    }
    return codes;
}

std::string Instrument::CodeOf(const Row& row, std::int64_t timeMs) const {
    if (!row.written.empty()) return row.written;
    return EncodeValue(row.parameter.length, row.parameter.behaviour(timeMs));
}

Instrument::Row* Instrument::FindRow(unsigned location) {
    const auto found = std::ranges::find_if(
        rows_, [&](const Row& row) { return row.location == location && !IsCommand(Code(), row.parameter); });
    return found == rows_.end() ? nullptr : &*found;
}

std::string Instrument::Frame(std::string_view text, char lineEnd) const {
    return ReplyFrame(Code(), AddressText(Address()).append(text), lineEnd);
}

Answer Instrument::Verdict(bool isAccepted) const {
    return isAccepted ? Answer{Outcome::kWriteAccepted, Frame("##", kFrameEnd)}
                      : Answer{Outcome::kWriteRefused, Frame("**", kFrameEnd)};
}

}  // namespace simulator
