// bare_loop DEVICE EXCHANGES: the least that an exchange on a serial device can cost. Writes the request
// "@01RD17" CR, waits with poll and reads to the carriage return, with nothing decoded or kept. Prints
// seconds of wall clock and of processor time, and the number of exchanges.

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "loop_costs.h"

namespace {

int OpenRaw(const char* device) {
    const int port = open(device, O_RDWR | O_NOCTTY | O_NONBLOCK);
    termios settings{};
    if (port < 0 || tcgetattr(port, &settings) != 0) {
        std::perror(device);
        std::exit(3);
    }
    cfmakeraw(&settings);
    tcsetattr(port, TCSANOW, &settings);
    tcflush(port, TCIOFLUSH);
    return port;
}

bool Exchange(int port) {
    constexpr std::string_view kRequest = "@01RD17\r";
    constexpr int kPatience = 2000;  // milliseconds
    if (write(port, kRequest.data(), kRequest.size()) != static_cast<ssize_t>(kRequest.size())) return false;
    char buffer[512];
    for (;;) {
        pollfd waiting{port, POLLIN, 0};
        if (poll(&waiting, 1, kPatience) <= 0) return false;
        const ssize_t count = read(port, buffer, sizeof buffer);
        if (count <= 0) return false;
        if (buffer[count - 1] == '\r') return true;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: bare_loop DEVICE EXCHANGES\n", stderr);
        return 2;
    }
    const int port = OpenRaw(argv[1]);
    const int exchanges = std::atoi(argv[2]);
    const LoopCosts costs;
    for (int i = 0; i < exchanges; ++i) {
        if (!Exchange(port)) {
            std::fprintf(stderr, "bare_loop: no reply to exchange %d\n", i + 1);
            return 1;
        }
    }
    costs.Print(exchanges);
    return 0;
}
