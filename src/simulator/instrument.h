#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/instrument_parts.h"

namespace simulator {

// An instrument: answers the content of a request with the content of its replies. No clock and no line of
// its own. Of the native protocol a content is a word and its data; of the Modbus family it is function and
// data (simulator/modbus_answers.h), of the special protocols what simulator/special_answers.h says, both in
// bytes.
class Instrument {
  public:
    // Parts of a static reply hold at most `partLength` data bytes, 0 for all in one.
    Instrument(Model model, int address, std::string name, std::vector<Parameter> parameters,
               int partLength = 0);
    Instrument(int code, int address, std::string name, std::vector<Parameter> parameters, int partLength = 0)
        : Instrument(Model{code}, address, std::move(name), std::move(parameters), partLength) {}

    int Code() const { return model_.code; }
    int Address() const { return address_; }
    const std::string& Name() const { return name_; }

    const LineManner& Manner() const { return manner_; }
    void SetManner(const LineManner& manner);
    // Whether it understands what is sent at `rate`; 0 is a rate that nobody knows, which all take for
    // theirs.
    bool Hears(int rate) const { return manner_.rate == 0 || rate == 0 || manner_.rate == rate; }

    // A request that makes no sense is refused, a native one with "**".
    Answer AnswerTo(std::string_view content, double seconds);

    // How it refuses such a request without looking at it; nothing if it cannot refuse it so. The exception
    // has two bytes, those of writes are for writes alone; empty is the usual one.
    std::optional<Answer> RefusalOf(std::string_view content, std::string_view exception,
                                    double seconds) const;

    // The answer to a write of its own address or baud rate leaves as the request came; from this call on
    // they are what was written.
    void ObeySettings();

    // Rows that are volatile live again as described.
    void LosePower();

    // The value of the parameter of that name; nothing if there is none.
    std::optional<double> ValueOf(std::string_view name, double seconds) const;

  private:
    Answer AnswerToNative(std::string_view content, double seconds);
    std::string DataOf(const Row& row, double seconds) const;
    std::size_t EndOfRun(std::size_t first) const;
    std::vector<std::string> StaticParts(double seconds) const;
    std::string DynamicData(double seconds) const;
    Answer Read(std::string_view content, double seconds) const;
    Answer Write(std::string_view content);
    Answer RunCommand(std::string_view content) const;
    std::size_t IndexOf(int address) const;

    Model model_;
    int describedAddress_;
    int describedRate_ = 0;
    int address_;
    std::string name_;
    int partLength_;
    LineManner manner_;
    std::vector<Row> rows_;
};

}  // namespace simulator
