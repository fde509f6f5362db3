#include "protocol_modbus/modbus_protocols.h"

#include "protocol_modbus/rtu_read_requests.h"
#include "protocol_modbus/rtu_reply_parser.h"
#include "protocol_modbus/rtu_write_requests.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {

std::vector<Protocol> RtuProtocols() {
    Protocol plain;
    plain.code = 31;
    plain.name = u"ModBus-RTU协议";
    plain.buildRead = BuildRtuReadFormA;
    plain.buildWrite = BuildRtuWrite;
    plain.replyIsComplete = EndsByRtuRule;
    plain.parseReply = ParseRtuReply;
    plain.displayMode = DisplayMode::Hexadecimal;
    plain.menu = OperationMenu::Modbus;
    plain.composeAddress = ComposeTwoDigitAddress;
    plain.showFrameAddress = ShowByteFrameAddress;

    Protocol first = plain;
    first.code = 32;
    first.name = u"ModBus-RTU协议-定制01";
    first.buildRead = BuildRtuReadFormB;

    Protocol recorder = plain;
    recorder.code = 33;
    recorder.name = u"ModBus-RTU协议-KD700记录仪";
    recorder.buildRead = BuildRtuReadFormC;
    recorder.buildWrite = nullptr;
    recorder.menu = OperationMenu::Recorder;

    Protocol board = plain;
    board.code = 34;
    board.name = u"ModBus-RTU协议-TQ记录仪板卡";

    Protocol flowMeter = plain;
    flowMeter.code = 35;
    flowMeter.name = u"ModBus-RTU协议-标准流量表";
    flowMeter.buildRead = BuildRtuReadFormD;
    flowMeter.buildWrite = BuildRtuWriteFlow;
    flowMeter.showFrameAddress = nullptr;

    Protocol second = flowMeter;
    second.code = 51;
    second.name = u"ModBus-RTU协议-M46T";
    second.buildWrite = nullptr;
    second.menu = OperationMenu::FlowMeter;

    plain.checkWordIsThatOfAWrite = true;
    return {plain, first, recorder, board, flowMeter, second};
}

}  // namespace commtest
