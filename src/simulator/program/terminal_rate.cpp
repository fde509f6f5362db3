#include "simulator/program/terminal_rate.h"

#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace simulator {

int RateOfTerminal(int handle) {
    termios2 settings{};
    if (ioctl(handle, TCGETS2, &settings) != 0) return 0;
    return static_cast<int>(settings.c_ospeed);
}

}  // namespace simulator
