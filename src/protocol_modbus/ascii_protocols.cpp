#include "protocol_modbus/ascii_read_requests.h"
#include "protocol_modbus/ascii_reply_rows.h"
#include "protocol_modbus/ascii_reply_verdicts.h"
#include "protocol_modbus/ascii_write_requests.h"
#include "protocol_modbus/modbus_protocols.h"
#include "protocol_modbus/row_manner.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {

std::vector<Protocol> AsciiProtocols() {
    Protocol plain;
    plain.code = 21;
    plain.name = u"ModBus-Ascii协议";
    plain.buildRead = BuildAsciiRead;
    plain.buildWrite = BuildAsciiWrite;
    plain.replyIsComplete = EndsWithLineFeed;
    plain.judge = JudgeAsciiReply;
    plain.words = WordsOnAsciiReply;
    plain.decode = DecodeAsciiRows;
    plain.displayMode = DisplayMode::Ascii;
    plain.menu = OperationMenu::Modbus;
    plain.composeAddress = ComposeTwoDigitAddress;
    plain.showFrameAddress = ShowAsciiFrameAddress;
    plain.addressOfReply = AddressOfAsciiFrame;
    plain.checkWordIsThatOfAWrite = true;
    plain.rows = kAsciiRowManner;

    Protocol first = plain;
    first.code = 22;
    first.name = u"ModBus-Ascii协议-定制01";
    first.buildRead = BuildAsciiReadCustom01;
    first.buildWrite = nullptr;
    first.judge = JudgeAsciiReplyTwo;
    first.decode = DecodeAsciiRowsTwo;
    first.checkWordIsThatOfAWrite = false;

    // Q147, Q71: neither end rule nor verdict, and no address of its own.
    Protocol second;
    second.code = 23;
    second.name = u"ModBus-Ascii协议-定制02";
    second.buildRead = BuildAsciiReadCustom02;
    second.rows = kAsciiRowManner;
    second.composeBorrowedAddress = ComposeTwoDigitAddress;
    return {plain, first, second};
}

}  // namespace commtest
