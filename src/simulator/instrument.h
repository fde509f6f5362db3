#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/behaviour.h"

namespace simulator {

// A parameter of a simulated instrument, as its row of the parameter list says.
struct Parameter {
    std::string name;
    std::string
        address;  // four hexadecimal characters; "0000" a command; code 12: length and three of address
    std::string length;     // "1", "2", "4", "8"; of a command its digit
    std::string attribute;  // R, D, W, S
    std::string decimals;
    std::optional<double> lowest;  // limits of a write, of the number on the line
    std::optional<double> highest;
    std::optional<Behaviour> behaviour;  // none: one that suits attribute and name
};

// An instrument of the native protocol: answers the content of a request with the content of its replies. No
// clock and no line of its own.
class Instrument {
  public:
    // `code` is 11, 12 or 13; parts of a static reply hold at most `partLength` data bytes, 0 for all in one.
    Instrument(int code, int address, std::string name, std::vector<Parameter> parameters,
               int partLength = 0);

    int Code() const { return code_; }
    int Address() const { return address_; }
    const std::string& Name() const { return name_; }

    // What a request is answered with: one content ("RD" and data), or the parts of a static reply. A request
    // that makes no sense is refused with "**".
    struct Answer {
        std::vector<std::string> parts;
        bool isWrite = false;
        bool isRefused = false;
    };
    Answer AnswerTo(std::string_view content, double seconds);

    // The value of the parameter of that name; nothing if there is none.
    std::optional<double> ValueOf(std::string_view name, double seconds) const;

  private:
    struct Row {
        Parameter parameter;
        Behaviour behaviour;
        bool isCommand;
        int address;
        int size;  // bytes
    };

    std::string DataOf(const Row& row, double seconds) const;
    std::size_t EndOfRun(std::size_t first) const;
    std::vector<std::string> StaticParts(double seconds) const;
    std::string DynamicData(double seconds) const;
    Answer Read(std::string_view content, double seconds) const;
    Answer Write(std::string_view content);
    Answer RunCommand(std::string_view content) const;
    std::size_t IndexOf(int address) const;
    static bool Accepts(const Row& row, std::optional<double> value);

    int code_;
    int address_;
    std::string name_;
    int partLength_;
    std::vector<Row> rows_;
};

}  // namespace simulator
