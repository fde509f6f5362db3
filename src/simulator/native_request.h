#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace simulator {

struct Request {
    enum class Kind { kReadDynamic, kReadStatic, kReadParameters, kWriteParameter, kCommand };

    Kind kind{};
    unsigned location = 0;   // address of the (first) parameter
    int length = 0;          // of the written parameter, or the digit of the command
    unsigned byteCount = 0;  // data bytes asked for
    std::string value;       // code text of a write, may be empty
};

// The request that stands behind the address, L a length digit, a a digit of the parameter's address, H a
// digit of the count of bytes asked for, v the code text of a value:
//                    codes 11, 13              code 12
//   dynamic data     RD                        RD
//   static data      RR                        RR
//   parameters       REaaaaHH                  RE0aaaHH        (HH of three digits above FF)
//   write            WLaaaav...                WLaaa0Lv...
//   command          W3, W4 or W5vvvv          none
// Nothing where the text is none of these.
std::optional<Request> ParseRequest(int code, std::string_view text);

// Where a parameter of the list stands, from its address: under code 12 the first digit is its length.
std::optional<unsigned> LocationOf(int code, std::string_view address);

}  // namespace simulator
