#pragma once

#include "cli/output_file.h"
#include "host/clock.h"
#include "host/serial_port.h"

namespace commtest {

// A port that writes down what goes through it: each chunk of bytes with its moment, the time since the
// chunk before it, and its direction.
class TracedPort : public SerialPort {
  public:
    TracedPort(SerialPort& port, const Clock& clock) : port_(port), clock_(clock) {}

    // From here on into that file, which has to outlive the last chunk.
    void TraceInto(OutputFile& file);
    // What has gathered goes out.
    void Flush();

    std::int16_t CommPort() const override { return port_.CommPort(); }
    void SetCommPort(std::int16_t number) override { port_.SetCommPort(number); }
    Text Settings() const override { return port_.Settings(); }
    void SetSettings(Text settings) override { port_.SetSettings(std::move(settings)); }
    bool PortOpen() const override { return port_.PortOpen(); }
    void SetPortOpen(bool open) override { port_.SetPortOpen(open); }
    Text LastProblem() const override { return port_.LastProblem(); }
    std::vector<PortDevice> Devices() const override { return port_.Devices(); }
    Text Device() const override { return port_.Device(); }
    void NameDevice(int number, Text device) override { port_.NameDevice(number, std::move(device)); }
    void Output(const std::string& bytes) override;
    std::string Input() override;

  private:
    void AddStamp(std::int64_t wall);  // microseconds since 1970
    void Add(std::string_view direction, const std::string& bytes);

    SerialPort& port_;
    const Clock& clock_;
    OutputFile* file_ = nullptr;
    std::string waiting_;
    std::int64_t wallOffset_ = 0;  // microseconds since 1970 less those of the clock
    std::int64_t last_ = 0;
    std::int64_t stampedSecond_ = 0;  // since 1970
    std::string stamp_;               // of a moment in that one
};

// The first line of such a file.
inline constexpr std::string_view kTraceHeading = "time,microseconds,gap,direction,bytes\n";

}  // namespace commtest
