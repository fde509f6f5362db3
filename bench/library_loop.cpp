// library_loop DEVICE EXCHANGES REGISTERS: the client of libmodbus. Asks address 1 for REGISTERS holding
// registers, walking over those from 0100 on. Prints seconds of wall clock and of processor time, and the
// number of exchanges.
#include <modbus/modbus.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "loop_costs.h"
#include "register_walk.h"

namespace {

struct FreeContext {
    void operator()(modbus_t* context) const {
        modbus_close(context);
        modbus_free(context);
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: library_loop DEVICE EXCHANGES REGISTERS\n", stderr);
        return 2;
    }
    const std::unique_ptr<modbus_t, FreeContext> context(modbus_new_rtu(argv[1], 9600, 'N', 8, 1));
    if (!context || modbus_set_slave(context.get(), 1) != 0 || modbus_connect(context.get()) != 0) {
        std::fprintf(stderr, "%s: %s\n", argv[1], modbus_strerror(errno));
        return 3;
    }
    const int exchanges = std::atoi(argv[2]);
    const int registers = std::atoi(argv[3]);
    std::array<std::uint16_t, MODBUS_MAX_READ_REGISTERS> values = {};
    const LoopCosts costs;
    for (int i = 0; i < exchanges; ++i) {
        const int first = FirstRegisterOf(i, registers);
        if (modbus_read_registers(context.get(), first, registers, values.data()) != registers) {
            std::fprintf(stderr, "library_loop: exchange %d: %s\n", i + 1, modbus_strerror(errno));
            return 1;
        }
    }
    costs.Print(exchanges);
    return 0;
}
