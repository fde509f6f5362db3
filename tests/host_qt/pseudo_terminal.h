#pragma once

#include <QString>
#include <string>

namespace commtest::testing {

// A real pseudo-terminal: the instrument's end of a line in the hands of a test.
class PseudoTerminal {
  public:
    PseudoTerminal();
    ~PseudoTerminal() { HangUp(); }
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    // The device that a program opens.
    const QString& Device() const { return device_; }

    void Write(const std::string& bytes) const;
    // Waits for so many bytes; fewer if they do not come.
    std::string Read(std::size_t count) const;
    int BaudRate() const;  // the rate set at the device, a standard one

    void HangUp();

  private:
    void Make();

    int master_ = -1;
    QString device_;
};

}  // namespace commtest::testing
