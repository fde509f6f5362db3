#include "simulator/instrument.h"

#include <charconv>
#include <cmath>

#include "simulator/framing.h"
#include "simulator/line_settings.h"
#include "simulator/modbus_answers.h"
#include "simulator/special_answers.h"
#include "simulator/value_codes.h"

namespace simulator {

namespace {

constexpr int kLengthInAddressCode = 12;
constexpr std::string_view kCommandAddress = "0000";
constexpr std::size_t kFirstDynamicRow = 5;  // the sixth row, from 0

std::optional<int> Hex(std::string_view text) {
    int value = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
    return value;
}

bool Has(std::string_view text, std::string_view wanted) {
    return text.find(wanted) != std::string_view::npos;
}

bool IsReadable(const Parameter& parameter) {
    return parameter.attribute.find_first_of("RDS") != std::string::npos;
}

Behaviour SuitableBehaviour(const Model& model, const Parameter& parameter, std::size_t row) {
    if (const auto life = LifeInEveryReply(model, row)) return *life;
    const bool isDynamic = Has(parameter.attribute, "D");
    if (Has(parameter.name, "小数点")) return Behaviour::Constant(1);
    if (Has(parameter.name, "累")) return *Behaviour::Read("counter 1000 0.5");
    if (isDynamic && parameter.length == "1") return *Behaviour::Read("ramp 0 9 20");
    if (isDynamic && parameter.length == "4") return *Behaviour::Read("sine 20 180 40");
    if (isDynamic) return *Behaviour::Read("sine -200 1800 " + std::to_string(20 + row));
    if (Has(parameter.attribute, "S")) return Behaviour::Constant(0);
    const double low = parameter.lowest.value_or(0);
    const double high = parameter.highest.value_or(low + 10);
    return Behaviour::Constant(static_cast<double>(static_cast<long>(low + (high - low) / 4)));
}

Answer Refused(bool isWrite) { return {{"**"}, isWrite, true}; }
Answer Accepted() { return {{"##"}, true, false}; }
Answer Told(std::vector<std::string> parts) { return {std::move(parts), false, false}; }

}  // namespace

Instrument::Instrument(Model model, int address, std::string name, std::vector<Parameter> parameters,
                       int partLength)
    : model_(model),
      describedAddress_(address),
      address_(address),
      name_(std::move(name)),
      partLength_(partLength) {
    const bool lengthInAddress = model.code == kLengthInAddressCode;
    for (Parameter& parameter : parameters) {
        const std::string number = lengthInAddress ? parameter.address.substr(1) : parameter.address;
        const bool isCommand = parameter.address == kCommandAddress;
        const int size = Hex(parameter.length).value_or(0);
        const Behaviour suitable = HoldsAddress(parameter)
                                       ? Behaviour::Constant(address)
                                       : SuitableBehaviour(model, parameter, rows_.size());
        const Behaviour behaviour = parameter.behaviour.value_or(suitable);
        rows_.push_back({std::move(parameter), behaviour, isCommand, Hex(number).value_or(-1), size});
    }
}

void Instrument::SetManner(const LineManner& manner) {
    manner_ = manner;
    describedRate_ = manner.rate;
    const auto code = CodeOfRate(manner.rate);
    if (!code) return;
    for (Row& row : rows_) {
        if (HoldsRate(row.parameter) && !row.parameter.behaviour) row.behaviour = Behaviour::Constant(*code);
    }
}

Answer Instrument::AnswerTo(std::string_view content, double seconds) {
    switch (FramingOf(model_.code).value()) {
        case Framing::Native: return AnswerToNative(content, seconds);
        case Framing::ModbusAscii:
        case Framing::ModbusRtu: return AnswerToModbus(model_, rows_, content, seconds);
        case Framing::Novax: return AnswerToNovax(rows_, content, seconds);
        case Framing::Hct615d: break;
    }
    return AnswerToHct615d(rows_, seconds);
}

std::optional<Answer> Instrument::RefusalOf(std::string_view content, std::string_view exception,
                                            double seconds) const {
    switch (FramingOf(model_.code).value()) {
        case Framing::Native: return Refused(content.starts_with("W"));
        case Framing::ModbusAscii:
        case Framing::ModbusRtu: return ModbusRefusalOf(content, exception);
        case Framing::Novax: return NovaxRefusalOf(rows_, content, seconds);
        case Framing::Hct615d: break;
    }
    return std::nullopt;
}

void Instrument::ObeySettings() {
    address_ = describedAddress_;
    manner_.rate = describedRate_;
    for (const Row& row : rows_) {
        if (!row.written) continue;
        if (HoldsAddress(row.parameter)) address_ = static_cast<int>(std::lround(*row.written));
        if (HoldsRate(row.parameter)) manner_.rate = RateOfCode(*row.written).value_or(manner_.rate);
    }
}

void Instrument::LosePower() {
    for (Row& row : rows_) {
        if (row.parameter.isVolatile) row.written.reset();
    }
    ObeySettings();
}

Answer Instrument::AnswerToNative(std::string_view content, double seconds) {
    if (content == "RD") return Told({"RD" + DynamicData(seconds)});
    if (content == "RR") return Told(StaticParts(seconds));
    if (content.starts_with("RE")) return Read(content.substr(2), seconds);
    if (content.starts_with("W")) return Write(content.substr(1));
    return Refused(false);
}

std::optional<double> Instrument::ValueOf(std::string_view name, double seconds) const {
    for (const Row& row : rows_) {
        if (row.parameter.name == name) return row.ValueAt(seconds);
    }
    return std::nullopt;
}

std::string Instrument::DataOf(const Row& row, double seconds) const {
    return CodeOfValue(row.ValueAt(seconds), row.size);
}

// A run goes on while the attribute begins with the same letter; rows of attribute "S" travel along.
std::size_t Instrument::EndOfRun(std::size_t first) const {
    const auto letterOf = [this](std::size_t i) { return rows_[i].parameter.attribute.substr(0, 1); };
    std::size_t end = first;
    while (end < rows_.size() &&
           (letterOf(end) == letterOf(first) || rows_[end].parameter.attribute == "S")) {
        ++end;
    }
    return end;
}

std::vector<std::string> Instrument::StaticParts(double seconds) const {
    std::size_t row = 0;
    while (row < rows_.size() && rows_[row].parameter.attribute != "RW") ++row;
    std::vector<std::string> parts = {"RR"};
    int bytes = 0;
    for (const std::size_t end = EndOfRun(row); row < end; ++row) {
        if (partLength_ > 0 && bytes > 0 && bytes + rows_[row].size > partLength_) {
            parts.push_back("RR");
            bytes = 0;
        }
        parts.back() += DataOf(rows_[row], seconds);
        bytes += rows_[row].size;
    }
    return parts;
}

std::string Instrument::DynamicData(double seconds) const {
    std::string data;
    if (rows_.size() <= kFirstDynamicRow) return data;
    const std::size_t end = EndOfRun(kFirstDynamicRow);
    for (std::size_t row = kFirstDynamicRow; row < end; ++row) data += DataOf(rows_[row], seconds);
    return data;
}

std::size_t Instrument::IndexOf(int address) const {
    std::size_t i = 0;
    while (i < rows_.size() && (rows_[i].isCommand || rows_[i].address != address)) ++i;
    return i;
}

// "aaaaHH": whole parameters from an address on, as many as fit into HH bytes, the first in any case.
Answer Instrument::Read(std::string_view content, double seconds) const {
    if (content.size() != 6 && content.size() != 7) return Refused(false);
    const auto address = Hex(content.substr(0, 4));
    const auto wanted = Hex(content.substr(4));
    std::size_t i = address ? IndexOf(*address) : rows_.size();
    if (!wanted || i == rows_.size()) return Refused(false);
    std::string data;
    int bytes = 0;
    int next = *address;
    const auto goesOn = [&] {
        return i < rows_.size() && rows_[i].address == next && IsReadable(rows_[i].parameter) &&
               (bytes == 0 || bytes + rows_[i].size <= *wanted);
    };
    for (; goesOn(); ++i) {
        data += DataOf(rows_[i], seconds);
        bytes += rows_[i].size;
        next += rows_[i].size;
    }
    return data.empty() ? Refused(false) : Told({"RE" + data});
}

// Codes 11 and 13 "Laaaav..."; code 12 "Laaa0Lv...". Commands without address: "3", "4", "5vvvv".
Answer Instrument::Write(std::string_view content) {
    const bool lengthInAddress = model_.code == kLengthInAddressCode;
    if (!lengthInAddress && (content.size() == 1 || (content.size() == 5 && content[0] == '5'))) {
        return RunCommand(content);
    }
    const std::size_t head = lengthInAddress ? 6 : 5;
    if (content.size() <= head) return Refused(true);
    const auto size = Hex(content.substr(0, 1));
    const auto address = Hex(content.substr(1, lengthInAddress ? 3 : 4));
    const std::size_t i = address ? IndexOf(*address) : rows_.size();
    if (!size || i == rows_.size() || rows_[i].size != *size) return Refused(true);
    Row& row = rows_[i];
    const auto value = ValueOfCode(content.substr(head), row.size);
    if (!Accepts(row, value)) return Refused(true);
    row.written = value;
    return Accepted();
}

Answer Instrument::RunCommand(std::string_view content) const {
    for (const Row& row : rows_) {
        const bool isThis = row.isCommand && row.parameter.length == content.substr(0, 1);
        if (!isThis) continue;
        const bool takesValue = row.parameter.length == "5";
        const bool isGood = !takesValue || Accepts(row, ValueOfCode(content.substr(1), 2));
        return isGood ? Accepted() : Refused(true);
    }
    return Refused(true);
}

}  // namespace simulator
