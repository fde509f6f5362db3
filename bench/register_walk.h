#pragma once

// The registers of the instrument of bench/line_benchmark, asked for one lump behind the other and from the
// beginning again, as the program walks over its rows: an instrument looks longer for its later registers.
inline int FirstRegisterOf(int exchange, int registers) {
    constexpr int kFirst = 0x0100;
    constexpr int kCount = 2000;
    return kFirst + exchange * registers % kCount;
}
