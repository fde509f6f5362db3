#include "simulator/description.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <sstream>

#include "simulator/framing.h"
#include "simulator/register_codes.h"

namespace simulator {

namespace {

using Fields = std::vector<std::string>;

std::string Trimmed(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(kBlanks) - first + 1));
}

Fields FieldsOf(const std::string& line) {
    Fields fields;
    std::istringstream in(line);
    for (std::string field; std::getline(in, field, '|');) fields.push_back(Trimmed(field));
    return fields;
}

bool IsAll(std::string_view text, std::string_view allowed) {
    return !text.empty() && text.find_first_not_of(allowed) == std::string_view::npos;
}

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kHexDigits = "0123456789ABCDEFabcdef";

// One line of a description and the way to complain about it.
class Line {
  public:
    Line(Fields fields, std::string place) : fields_(std::move(fields)), place_(std::move(place)) {}

    std::string At(std::size_t index) const {
        return index < fields_.size() ? fields_[index] : std::string();
    }

    [[noreturn]] void Refuse(const std::string& expected, std::size_t index) const {
        throw DescriptionError(place_ + ": expected " + expected + ", found \"" + At(index) + "\"");
    }

    int Whole(std::size_t index, int otherwise, const std::string& expected) const {
        const std::string text = At(index);
        if (text.empty()) return otherwise;
        int value = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error != std::errc() || stop != text.data() + text.size() || value < 0) Refuse(expected, index);
        return value;
    }

    std::optional<double> Limit(std::size_t index) const {
        const std::string text = At(index);
        if (text.empty()) return std::nullopt;
        double value = 0;
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool isNumber = error == std::errc() && stop == text.data() + text.size();
        if (!isNumber || !std::isfinite(value)) Refuse("a limit", index);
        return value;
    }

  private:
    Fields fields_;
    std::string place_;
};

Parameter ParameterOf(const Line& line) {
    Parameter parameter{line.At(0), line.At(1),    line.At(2),    line.At(3),
                        line.At(4), line.Limit(5), line.Limit(6), {}};
    if (parameter.address.size() != 4 || !IsAll(parameter.address, kHexDigits)) {
        line.Refuse("an address of four hexadecimal digits", 1);
    }
    if (parameter.length.size() != 1 || !IsAll(parameter.length, kDigits))
        line.Refuse("a length of one digit", 2);
    if (!IsAll(parameter.attribute, "RDWS")) line.Refuse("an attribute of the letters R, D, W, S", 3);
    parameter.isVolatile = line.At(8) == "volatile";
    if (!parameter.isVolatile && !line.At(8).empty()) line.Refuse("volatile, or nothing", 8);
    if (line.At(7).empty()) return parameter;
    parameter.behaviour = Behaviour::Read(line.At(7));
    if (!parameter.behaviour) line.Refuse("constant, ramp, sine, counter or walk with its numbers", 7);
    return parameter;
}

struct Head {
    Model model;
    std::string name;
    int address;
    int partLength;
    LineManner manner;
};

LineManner MannerOf(const Line& line) {
    LineManner manner;
    manner.rate = line.Whole(4, 0, "a baud rate");
    manner.delayMs = line.Whole(5, 0, "a delay in milliseconds");
    manner.garbles = line.At(6) == "garbage";
    if (!manner.garbles && !line.At(6).empty()) line.Refuse("garbage, or nothing", 6);
    return manner;
}

Head HeadOf(const Line& line, int nextAddress, int partLength) {
    const std::string code = line.At(0);
    const Model model{std::stoi(code.substr(0, 2)), std::stoi(code.substr(2, 2))};
    if (!FramingOf(model.code))
        line.Refuse("a code that begins with 11, 12, 13, 21, 22, 31, 32, 33, 34, 35, 41, 42 or 51", 0);
    if (!IsKnownFormat(model))
        line.Refuse("a code with the number format 00, 01, 02, 03, 06, 07 or 11 behind its protocol", 0);
    return {model, line.At(1), line.Whole(2, nextAddress, "an address"),
            line.Whole(3, partLength, "a part length"), MannerOf(line)};
}

bool BeginsInstrument(const Fields& fields) { return fields[0].size() >= 4 && IsAll(fields[0], kDigits); }

// Collects the rows of one instrument after the other.
class Reader {
  public:
    explicit Reader(const DescriptionDefaults& defaults) : defaults_(defaults) {}

    void Take(const Fields& fields, const Line& line) {
        if (BeginsInstrument(fields)) {
            CloseInstrument();
            const int nextAddress = defaults_.firstAddress + static_cast<int>(heads_.size());
            heads_.push_back(HeadOf(line, nextAddress, defaults_.partLength));
        } else if (heads_.empty()) {
            line.Refuse("the code of an instrument", 0);
        } else {
            parameters_.push_back(ParameterOf(line));
        }
    }

    std::vector<Instrument> Finish() {
        CloseInstrument();
        return std::move(instruments_);
    }

  private:
    void CloseInstrument() {
        if (heads_.empty()) return;
        const Head& head = heads_.back();
        instruments_.emplace_back(head.model, head.address, head.name, std::move(parameters_),
                                  head.partLength);
        instruments_.back().SetManner(head.manner);
        parameters_.clear();
    }

    DescriptionDefaults defaults_;
    std::vector<Head> heads_;
    std::vector<Parameter> parameters_;
    std::vector<Instrument> instruments_;
};

}  // namespace

std::vector<Instrument> ReadDescription(std::string_view text, const std::string& source,
                                        const DescriptionDefaults& defaults) {
    Reader reader(defaults);
    std::istringstream in{std::string(text)};
    int number = 0;
    for (std::string raw; std::getline(in, raw);) {
        ++number;
        if (Trimmed(raw).empty() || Trimmed(raw).front() == '#') continue;
        const Fields fields = FieldsOf(raw);
        reader.Take(fields, Line(fields, source + ":" + std::to_string(number)));
    }
    std::vector<Instrument> instruments = reader.Finish();
    if (instruments.empty()) throw DescriptionError(source + ": expected an instrument, found none");
    return instruments;
}

void RefuseMixedFramings(const std::vector<Instrument>& instruments) {
    for (const Instrument& instrument : instruments) {
        if (FramingOf(instrument.Code()) == FramingOf(instruments.front().Code())) continue;
        throw DescriptionError("expected instruments that share a line, found \"" +
                               instruments.front().Name() + "\" and \"" + instrument.Name() + "\"");
    }
}

void RefuseSharedAddresses(const std::vector<Instrument>& instruments) {
    std::multimap<int, const Instrument*> others;
    for (const Instrument& instrument : instruments) {
        const auto [first, behind] = others.equal_range(instrument.Address());
        const auto taken = std::find_if(first, behind, [&instrument](const auto& other) {
            return other.second->Hears(instrument.Manner().rate);
        });
        if (taken != behind) {
            throw DescriptionError("address " + std::to_string(instrument.Address()) +
                                   ": expected one instrument, found \"" + taken->second->Name() +
                                   "\" and \"" + instrument.Name() + "\"");
        }
        others.emplace(instrument.Address(), &instrument);
    }
}

}  // namespace simulator
