// A Modbus RTU server on a serial device, for the whole-program tests: modbus_rtu_server DEVICE ADDRESS
// Holding register n starts with (n * 257 + 3) modulo 65536, input register n with (n * 3 + 1) modulo 65536.
// Prints "ready"; a line "N" on standard input is answered with the value of holding register N; ends with
// its input.
#include <modbus/modbus.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

namespace {

constexpr int kRegisters = 65536;

struct FreeContext {
    void operator()(modbus_t* context) const {
        modbus_close(context);
        modbus_free(context);
    }
};
struct FreeMapping {
    void operator()(modbus_mapping_t* mapping) const { modbus_mapping_free(mapping); }
};

void Fill(modbus_mapping_t& mapping) {
    for (int n = 0; n < kRegisters; ++n) {
        mapping.tab_registers[n] = static_cast<std::uint16_t>(n * 257 + 3);
        mapping.tab_input_registers[n] = static_cast<std::uint16_t>(n * 3 + 1);
    }
}

void AnswerRequest(modbus_t* context, modbus_mapping_t* mapping) {
    std::array<std::uint8_t, MODBUS_RTU_MAX_ADU_LENGTH> request = {};
    const int length = modbus_receive(context, request.data());
    if (length > 0) modbus_reply(context, request.data(), length, mapping);
}

}  // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) return 2;
    const std::unique_ptr<modbus_t, FreeContext> context(modbus_new_rtu(argv[1], 9600, 'N', 8, 1));
    const std::unique_ptr<modbus_mapping_t, FreeMapping> mapping(
        modbus_mapping_new(0, 0, kRegisters, kRegisters));
    if (!context || !mapping || modbus_set_slave(context.get(), std::atoi(argv[2])) != 0 ||
        modbus_connect(context.get()) != 0) {
        std::fprintf(stderr, "%s: %s\n", argv[1], modbus_strerror(errno));
        return 3;
    }
    Fill(*mapping);
    std::cout << "ready" << std::endl;
    std::array<pollfd, 2> waits = {
        {{modbus_get_socket(context.get()), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}}};
    while (poll(waits.data(), waits.size(), -1) > 0) {
        if ((waits[0].revents & POLLIN) != 0) AnswerRequest(context.get(), mapping.get());
        if (waits[1].revents == 0) continue;
        std::string line;
        if (!std::getline(std::cin, line)) break;
        std::cout << mapping->tab_registers[std::atoi(line.c_str()) % kRegisters] << std::endl;
    }
    return 0;
}
