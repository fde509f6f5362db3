#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// How requests and replies stand on the line, by the protocol code of an instrument.
namespace simulator {

enum class Framing { Native, ModbusAscii, ModbusRtu, Novax, Hct615d };

// Nothing for a code that no simulated instrument speaks.
std::optional<Framing> FramingOf(int code);

// The content of a request for the instrument of that code and address, nothing if it is none.
std::optional<std::string> ContentOfFrame(int code, int address, std::string_view frame);

// A reply as it leaves the instrument; after all parts but the last one the host asks for more.
std::string MakeReplyFrame(int code, int address, std::string_view content, bool isLastPart);

// What a corruption leaves alone, so that the check of the reply fails and nothing else: bytes at both ends,
// and with `keepsDigits` a hexadecimal digit becomes another one.
struct Spared {
    std::size_t head = 1;
    std::size_t tail = 1;
    bool keepsDigits = false;
};
Spared SparedBytes(Framing framing);

// Cuts what comes on a line into requests.
class RequestReader {
  public:
    explicit RequestReader(Framing framing) : framing_(framing) {}

    // The frames that these bytes bring to their end. A native continue byte is a frame of its own. Requests
    // without an end character are complete when their check bytes are right (Modbus RTU) or at their length,
    // which all of a framing share (NOVAX, HCT615D); what is not complete by the time of a silence is one
    // frame of rubbish.
    std::vector<std::string> Take(std::string_view bytes, double timeMs);

  private:
    bool EndsFrame(char byte, bool isLastOfItsPiece);

    Framing framing_;
    std::string frame_;  // bytes of the request so far
    double lastByteMs_ = 0;
};

}  // namespace simulator
