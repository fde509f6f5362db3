#include "session/frame_end.h"

#include "runtime/number.h"

namespace commtest {

bool EndsWithLineEnd(const HexText& reply, const HexText&) {
    return Contains(reply, u"0A") || Contains(reply, u"0D");
}

bool EndsWithLineFeed(const HexText& reply, const HexText&) { return Contains(reply, u"0A"); }

bool EndsByRtuRule(const HexText& reply, const HexText& request) {
    const int length = Len(reply);
    const Text function = Mid(reply, 4, 3);
    // Address, function, count, data and two check bytes. A fraction never equals a count.
    const bool countMatches = HexParse(Mid(reply, 8, 2)) * 3 == length - 15;  // Q60: of any function
    const bool isWriteEcho = function == u" 06" && reply == request;
    const bool isBoardType = length == 24 && function == u" 09";
    const bool isTestEcho = length >= 21 && function == u" 08";  // Q62: 24 would be whole
    const bool isException = length == 15 && Mid(reply, 4, 2) == u" 8";
    return countMatches || isWriteEcho || isBoardType || isTestEcho || isException;
}

bool HasTenBytes(const HexText& reply, const HexText&) { return Len(reply) >= 30; }

bool HasSixtyFourBytes(const HexText& reply, const HexText&) { return Len(reply) >= 192; }

}  // namespace commtest
