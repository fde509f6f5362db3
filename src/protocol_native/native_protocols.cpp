#include "protocol_native/native_protocols.h"

#include "protocol_native/check_words.h"
#include "protocol_native/read_requests.h"
#include "protocol_native/reply_rows.h"
#include "protocol_native/reply_verdicts.h"
#include "protocol_native/row_manner.h"
#include "protocol_native/write_requests.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {

std::vector<Protocol> NativeProtocols() {
    Protocol plain;
    plain.code = 11;
    plain.name = u"TQ仪表协议";
    plain.buildRead = BuildTqReadRequest;
    plain.buildWrite = BuildTqWriteRequest;
    plain.replyIsComplete = EndsWithLineEnd;
    plain.continuesOnLineFeed = true;
    plain.judge = JudgeTqReply;
    plain.words = WordsOnTqReply;
    plain.decode = DecodeTqReplyRows;
    plain.displayMode = DisplayMode::Ascii;
    plain.menu = OperationMenu::Native;
    plain.composeAddress = ComposeAsciiAddress;
    plain.showFrameAddress = ShowAsciiFrameAddress;
    plain.addressOfReply = AddressOfAsciiFrame;
    plain.appendCheckWord = MakeCRCWordTq;
    plain.rows = kNativeRowManner;

    Protocol sum = plain;
    sum.code = 12;
    sum.name = u"TQ仪表协议-定制累加和";
    sum.buildRead = BuildTqGroupReadRequest;
    sum.buildWrite = BuildTqWriteRequestTwo;
    sum.judge = JudgeTqReplyTwo;
    sum.appendCheckWord = MakeCRCWordTqTwo;

    // Q71: takes no part in the composing of addresses.
    Protocol filled = plain;
    filled.code = 13;
    filled.name = u"TQ仪表协议-定制异或和";
    filled.buildWrite = nullptr;
    filled.composeAddress = nullptr;
    filled.composeBorrowedAddress = ComposeAsciiAddress;
    filled.showFrameAddress = nullptr;
    return {plain, sum, filled};
}

}  // namespace commtest
