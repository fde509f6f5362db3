#pragma once

#include "cli/line_loop.h"
#include "controls/timer.h"
#include "host_qt/qt_serial_port.h"

namespace commtest {

// A port of the machine whose bytes a loop of the program carries. The toolkit opens, locks and configures
// it, says why it cannot, and looks for it once it is lost; the loss is told from the loop.
class PolledPort : public QtSerialPort {
  public:
    PolledPort(LineLoop& loop, DeviceMap devices);

    void SetPortOpen(bool open) override;
    // What the device does not take at once follows when there is room.
    void Output(const std::string& bytes) override;
    std::string Input() override;

  private:
    void LoseSoon() override;
    void Carry(short events);
    void Write();
    void Read();
    void StopCarrying();

    LineLoop& loop_;
    Timer loss_{false, 0};
    int descriptor_ = -1;  // below 0: nothing is carried
    std::string arrived_;
    std::string leaving_;
    bool awaitsRoom_ = false;
};

}  // namespace commtest
