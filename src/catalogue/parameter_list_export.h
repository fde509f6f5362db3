#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/program_files.h"
#include "host/store.h"
#include "runtime/text.h"

namespace commtest {

// A row of which code page 936 lacks a character: it is written with "?".
struct LossyRow {
    Text instrument;
    int serial = 0;  // from 1; 0 is the head of the device
    Text name;
};

// Writes instruments and parameters of the catalogue as a list, a row a step: lines of code page 936 with CR
// LF.
class ParameterListExport {
  public:
    using Sink = std::function<void(const std::string& bytes)>;

    // Takes those instruments only whose names `wanted` knows; all of them without it. Errors of the store.
    ParameterListExport(Store& store, Sink sink, std::function<bool(const Text& name)> wanted = {});

    // A row of the catalogue; false behind the last one, once all is written. Errors of the store and of the
    // sink.
    bool Step();

    int Instruments() const { return instruments_; }
    int Parameters() const { return parameters_; }

    // The first of them, kMostLossyRows at most.
    const std::vector<LossyRow>& LossyRows() const { return lossyRows_; }
    static constexpr std::size_t kMostLossyRows = 1000;

  private:
    void BeginDevice(const Text& name);
    void WriteRow();
    void WriteLine(const Text& line, const Text& rowName);
    void Flush();

    Store& store_;
    Sink sink_;
    std::function<bool(const Text& name)> wanted_;
    std::unique_ptr<RowCursor> rows_;
    std::optional<Text> device_;  // of the row before
    bool isWanted_ = true;
    int serial_ = 0;
    int instruments_ = 0;
    int parameters_ = 0;
    std::vector<LossyRow> lossyRows_;
    std::string pending_;  // bytes that are not written yet
};

// The line of a parameter, without its end: columns of a fixed width each. `serial` counts from 1, `address`
// is 合成地址.
Text ListLineOf(int serial, const Text& name, const Text& address, const Text& decimalPoint,
                const Text& attribute, const Text& lowerLimit, const Text& upperLimit);

// Appends the catalogue to OutTQ.ini. Errors of the store; error 52 if the file cannot be written.
void ExportParameterList(Store& store, ProgramFiles& files);

}  // namespace commtest
