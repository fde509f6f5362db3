#include "session/reply_routing.h"

#include "host/serial_port.h"
#include "runtime/number.h"
#include "session/main_form.h"
#include "session/receive_reply.h"

namespace commtest {

namespace {

void RecordSearchHit(MainForm& form) {
    form.SearchFoundCount = Add16(form.SearchFoundCount, 1);
    Text block(78, u'*');
    block += kLineEnd;
    block += u"仪表搜索,接收到数据,此时仪表地址: " + form.ConMeterAddr.Value();
    block += u"      波特率: " + Before(form.MSComm1.Settings(), u',');
    block += kLineEnd;
    form.Record().PutOnTop({std::move(block)});
}

Text FailureRate(const MainForm& form) {
    const std::int32_t failures = Add32(Add32(form.IncompleteCount, form.CheckErrorCount), form.NoReplyCount);
    const double rate = static_cast<double>(Multiply32(failures, 100)) / form.SendCount;
    return GroupedText(rate, 2) + u" %";
}

}  // namespace

void RouteReply(MainForm& form) {
    // Q63: 0 without an instrument.
    form.ProtocolCode = Whole16(LeadingWholeNumber(Left(form.MeterCodeText, 2)));
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.judge != nullptr) ReceiveReply(form);
    const bool isSearching =
        form.CommandCode >= command::kFirstOfSearch && form.CommandCode <= command::kLastOfSearch;
    if (isSearching) RecordSearchHit(form);
    ShowStatistics(form);
}

void ShowStatistics(MainForm& form) {
    const Text total =
        Text(form.texts.beforeTotal) + WholeText(form.SendCount) + Text(form.texts.behindTotal);
    form.ConCommMessage[1].Set(total);
    Text failures = u"数据不完整 " + WholeText(form.IncompleteCount) + u" 次;校验出错 " +
                    WholeText(form.CheckErrorCount) + u" 次;无应答 " + WholeText(form.NoReplyCount) +
                    u" 次; 错误率 ";
    if (form.SendCount >= 1) failures += FailureRate(form);
    form.ConCommMessage[0].Set(failures);
    form.ConCommMessage[2].Set(total + Text(9, u' ') + failures);
}

}  // namespace commtest
