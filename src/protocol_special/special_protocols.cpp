#include "protocol_special/special_protocols.h"

#include "protocol_special/hct615d_reply.h"
#include "protocol_special/hct615d_request.h"
#include "protocol_special/novax_reply.h"
#include "protocol_special/novax_requests.h"
#include "protocol_special/row_manner.h"
#include "session/address.h"
#include "session/frame_end.h"

namespace commtest {

namespace {

Protocol Novax() {
    Protocol novax;
    novax.code = 41;
    novax.name = u"TQ特殊仪表协议-NOVAX";
    novax.buildRead = BuildNovaxReadRequest;
    novax.buildWrite = BuildNovaxWriteRequest;
    novax.replyIsComplete = HasTenBytes;
    novax.judge = JudgeNovaxReply;
    novax.words = WordsOnNovaxReply;
    novax.decode = TestCRCWordNOVAX;
    novax.displayMode = DisplayMode::Hexadecimal;
    novax.menu = OperationMenu::Modbus;
    novax.composeAddress = ComposeDoubledAddress;
    novax.showFrameAddress = ShowZeroAddress;
    novax.rows = kNovaxRowManner;
    return novax;
}

Protocol Hct615d() {
    Protocol meter;
    meter.code = 42;
    meter.name = u"TQ特殊仪表协议-HCT615D";
    meter.buildRead = BuildHct615dReadRequest;
    meter.replyIsComplete = HasSixtyFourBytes;
    meter.judge = JudgeHct615dReply;
    meter.words = WordsOnHct615dReply;
    meter.decode = DecodeHct615dReply;
    meter.countsWrongCheckWords = false;  // Q201
    meter.displayMode = DisplayMode::Hexadecimal;
    meter.composeAddress = ComposeTwoDigitAddress;
    meter.rows = kHct615dRowManner;
    return meter;
}

}  // namespace

std::vector<Protocol> SpecialProtocols() { return {Novax(), Hct615d()}; }

}  // namespace commtest
