#include "simulator/special_answers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "simulator/bytes.h"
#include "simulator/framing.h"
#include "simulator/hex_digits.h"
#include "simulator/novax_frames.h"
#include "simulator/register_codes.h"

namespace simulator {

namespace {

constexpr std::size_t kFirstReported = 5;   // the sixth row, from 0
constexpr std::size_t kFirstParameter = 9;  // the tenth

// Of the rows that every reply holds, by place.
constexpr const char* kNovaxLives[] = {"sine 200 1800 20", "ramp 0 1000 40", "ramp 0 9 20", "ramp 0 3 40"};
constexpr const char* kHct615dLives[] = {"sine 100 900 20", "ramp 0 50 40", "sine 1500 6500 20",
                                         "counter 1000 0.5"};

double ReportedValue(const std::vector<Row>& rows, std::size_t place, double seconds) {
    const std::size_t row = kFirstReported + place;
    return row < rows.size() ? rows[row].ValueAt(seconds) : 0;
}

// --- NOVAX ---

std::string Swapped(std::string_view word) { return {word[1], word[0]}; }

std::string Word(double value) { return Swapped(BytesOfValue(value, RegisterForm::TwosComplement, 2)); }

std::string Byte(double value) { return BytesOfValue(value, RegisterForm::OneByte, 1); }

std::string Status(const std::vector<Row>& rows, double seconds) {
    const auto valueAt = [&](std::size_t place) { return ReportedValue(rows, place, seconds); };
    return Word(valueAt(0)) + Word(valueAt(1)) + Byte(valueAt(2)) + Byte(valueAt(3));
}

Row* ParameterOf(std::vector<Row>& rows, int number) {
    constexpr int kLowByte = 0xFF;
    for (std::size_t i = kFirstParameter; i < rows.size(); ++i) {
        if ((rows[i].address & kLowByte) == number) return &rows[i];
    }
    return nullptr;
}

bool Write(Row* parameter, std::string_view data) {
    const auto value = ValueOfBytes(Swapped(data), RegisterForm::TwosComplement);
    if (parameter == nullptr || !Accepts(*parameter, value)) return false;
    parameter->written = value;
    return true;
}

// --- HCT615D ---

std::string DecimalDigits(double value, std::size_t count) {
    const double largest = std::pow(10.0, static_cast<double>(count)) - 1;
    const auto number = static_cast<std::uint64_t>(std::clamp(std::round(value), 0.0, largest));
    std::string digits = std::to_string(number);
    digits.insert(0, count - digits.size(), '0');
    return BytesOfHex(digits).value();
}

}  // namespace

Answer AnswerToNovax(std::vector<Row>& rows, std::string_view request, double seconds) {
    Row* const parameter = ParameterOf(rows, ByteAt(request, 1));
    if (ByteAt(request, 0) == kNovaxWrite) {
        const std::string_view data = request.substr(2);
        const bool isTaken = Write(parameter, data);
        return {{Status(rows, seconds) + std::string(data)}, true, !isTaken};
    }
    const double value = parameter == nullptr ? 0 : parameter->ValueAt(seconds);
    return {{Status(rows, seconds) + Word(value)}, false, false};
}

std::optional<Answer> NovaxRefusalOf(const std::vector<Row>& rows, std::string_view request, double seconds) {
    if (ByteAt(request, 0) != kNovaxWrite) return std::nullopt;
    return Answer{{Status(rows, seconds) + std::string(request.substr(2))}, true, true};
}

Answer AnswerToHct615d(const std::vector<Row>& rows, double seconds) {
    constexpr std::size_t kDigits[] = {4, 4, 6, 8};
    std::string content;
    for (std::size_t place = 0; place < std::size(kDigits); ++place) {
        content += DecimalDigits(ReportedValue(rows, place, seconds), kDigits[place]);
    }
    return {{content}, false, false};
}

std::optional<Behaviour> LifeInEveryReply(const Model& model, std::size_t row) {
    if (row < kFirstReported || row >= kFirstParameter) return std::nullopt;
    const std::size_t place = row - kFirstReported;
    const auto framing = FramingOf(model.code);
    if (framing == Framing::Novax) return Behaviour::Read(kNovaxLives[place]);
    if (framing == Framing::Hct615d) return Behaviour::Read(kHct615dLives[place]);
    return std::nullopt;
}

}  // namespace simulator
