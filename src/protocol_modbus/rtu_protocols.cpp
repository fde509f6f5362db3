#include "protocol_modbus/modbus_protocols.h"

#include "protocol_modbus/row_manner.h"
#include "protocol_modbus/rtu_read_requests.h"
#include "protocol_modbus/rtu_reply_rows.h"
#include "protocol_modbus/rtu_reply_verdicts.h"
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
    plain.judge = JudgeRtuReply;
    plain.words = WordsOnRtuReply;
    plain.decode = DecodeRtuRows;
    plain.displayMode = DisplayMode::Hexadecimal;
    plain.menu = OperationMenu::Modbus;
    plain.composeAddress = ComposeTwoDigitAddress;
    plain.showFrameAddress = ShowByteFrameAddress;
    plain.addressOfReply = AddressOfByteFrame;
    plain.rows = kRtuRowManner;

    Protocol customised = plain;
    customised.code = 32;
    customised.name = u"ModBus-RTU协议-定制01";
    customised.buildRead = BuildRtuReadFormB;

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
    flowMeter.rows = kRtuFlowRowManner;

    Protocol m46t = flowMeter;
    m46t.code = 51;
    m46t.name = u"ModBus-RTU协议-M46T";
    m46t.buildWrite = nullptr;
    m46t.stepsOverSilentRows = true;  // Q140: this code alone
    m46t.menu = OperationMenu::FlowMeter;

    plain.checkWordIsThatOfAWrite = true;
    return {plain, customised, recorder, board, flowMeter, m46t};
}

}  // namespace commtest
