// transport_loop DEVICE EXCHANGES REGISTERS: a bare loop on the program's own serial transport. Asks address
// 1 for REGISTERS holding registers, walking over those from 0100 on, with nothing decoded or kept. Prints
// seconds of wall clock and of processor time, and the number of exchanges.
#include <QCoreApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

#include "host_qt/qt_serial_port.h"
#include "loop_costs.h"
#include "numbers/crc16.h"
#include "register_walk.h"

namespace {

std::string Request(int first, int registers) {
    std::string frame = {'\x01', '\x03'};
    for (const int word : {first, registers}) {
        frame += static_cast<char>(word >> 8);
        frame += static_cast<char>(word);
    }
    commtest::Crc16 crc;
    for (const char byte : frame) crc.Fold(static_cast<std::uint8_t>(byte));
    return frame + static_cast<char>(crc.First()) + static_cast<char>(crc.Second());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: transport_loop DEVICE EXCHANGES REGISTERS\n", stderr);
        return 2;
    }
    QCoreApplication application(argc, argv);
    commtest::QtSerialPort port({{1, QString::fromLocal8Bit(argv[1])}});
    port.SetPortOpen(true);
    if (!port.PortOpen()) {
        std::fprintf(stderr, "transport_loop: %s cannot be opened\n", argv[1]);
        return 3;
    }
    const int exchanges = std::atoi(argv[2]);
    const int registers = std::atoi(argv[3]);
    const std::size_t replyLength = 5 + 2 * static_cast<std::size_t>(registers);
    int done = 0;
    std::size_t arrived = 0;
    port.Receives = [&] {
        arrived += port.Input().size();
        if (arrived < replyLength) return;
        arrived = 0;
        if (++done == exchanges) {
            QCoreApplication::exit(0);
        } else {
            port.Output(Request(FirstRegisterOf(done, registers), registers));
        }
    };
    constexpr int kPatience = 60'000;  // milliseconds
    QTimer::singleShot(kPatience, [] { QCoreApplication::exit(1); });
    const LoopCosts costs;
    port.Output(Request(FirstRegisterOf(0, registers), registers));
    const int status = QCoreApplication::exec();
    costs.Print(done);
    return status;
}
