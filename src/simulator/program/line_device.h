#pragma once

#include <string>

namespace simulator {

// The device on which the instruments play: a pseudo-terminal of its own or one that is there. Raw, never
// blocking. Raises std::system_error naming what could not be had.
class LineDevice {
  public:
    // An empty path makes a pseudo-terminal; a link of that name leads to it as long as it lives. A link that
    // was left there is replaced, anything else stays and is an error.
    LineDevice(const std::string& device, const std::string& link);
    ~LineDevice();
    LineDevice(const LineDevice&) = delete;
    LineDevice& operator=(const LineDevice&) = delete;

    int Handle() const { return handle_; }
    const std::string& Path() const { return path_; }  // what the host opens

    // Baud rate that the host has set at the pseudo-terminal; 0 on a device, whose far end nobody can ask.
    int Rate() const;

    // What has come; empty if nothing waits. Raises std::system_error if the device is gone.
    std::string Read() const;
    // What does not fit because nobody reads is lost, as on a wire.
    void Write(const std::string& bytes) const;

  private:
    void OpenTerminal();
    void MakeLink(const std::string& link);

    int handle_ = -1;
    int hostSide_ = -1;  // kept open, so that the host may close and open it again
    std::string path_;
    std::string link_;
};

}  // namespace simulator
