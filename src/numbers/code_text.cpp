#include "numbers/code_text.h"

#include "runtime/hex_text.h"
#include "runtime/number.h"

namespace commtest {

int CodeByteAt(TextView code, int position) { return HexParse(Mid(code, position, 2)); }

void SwapTwoBytes(Text& code) { code = Mid(code, 3, 2) + Mid(code, 1, 2); }

Text CodeByteOf(double value) {
    const Text digits = HexOf(value);
    return Len(digits) < 2 ? FittedToWidth(digits, 2) : digits;
}

}  // namespace commtest
