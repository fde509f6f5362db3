#include "session/reply_routing.h"

#include "host/serial_port.h"
#include "runtime/number.h"
#include "session/main_form.h"
#include "session/receive_reply.h"

namespace commtest {

namespace {

// The exchange of a protocol that judges no replies stays under way.
SearchHit HitOf(const MainForm& form, const Protocol& protocol) {
    const OutcomePointer outcome = protocol.judge != nullptr ? form.Outcomes.Last() : nullptr;
    const Exchange& exchange = outcome != nullptr ? outcome->exchange : form.UnderWay;
    SearchHit hit;
    hit.address = LeadingWholeNumber(form.ConMeterAddr.Value());
    hit.rate = Before(form.MSComm1.Settings(), u',');
    if (exchange.firstByteTime) hit.replyTime = *exchange.firstByteTime - exchange.requestTime;
    hit.reply = outcome != nullptr ? exchange.reply : form.ReplyText;
    if (outcome != nullptr) hit.check = outcome->verdict.check;
    if (hit.check == CheckWord::Right && protocol.addressOfReply != nullptr) {
        hit.address = protocol.addressOfReply(hit.reply).value_or(hit.address);
    }
    return hit;
}

void RecordSearchHit(MainForm& form, const Protocol& protocol) {
    form.SearchHits.push_back(HitOf(form, protocol));
    form.SearchFoundCount = Add16(form.SearchFoundCount, 1);
    Text block(78, u'*');
    block += kLineEnd;
    block += u"仪表搜索,接收到数据,此时仪表地址: " + form.ConMeterAddr.Value();
    block += u"      波特率: " + Before(form.MSComm1.Settings(), u',');
    block += kLineEnd;
    form.Record().PutOnTop({std::move(block)});
}

struct StatisticsCaption {
    Text text;
    StatisticsNumbers numbers;
};

void Add(StatisticsCaption& caption, TextView number, bool isFailure) {
    caption.numbers.Add({caption.text.size(), number.size(), isFailure});
    caption.text += number;
}

void AddFailures(StatisticsCaption& caption, TextView words, std::int32_t count) {
    caption.text += words;
    Add(caption, WholeText(count), count > 0);
}

void AddRate(StatisticsCaption& caption, const MainForm& form) {
    const std::int32_t failures = Add32(Add32(form.IncompleteCount, form.CheckErrorCount), form.NoReplyCount);
    const double rate = static_cast<double>(Multiply32(failures, 100)) / form.SendCount;
    Add(caption, failures == 0 ? u"0.00 %" : GroupedText(rate, 2) + u" %", failures > 0);
}

void Append(StatisticsCaption& caption, const StatisticsCaption& behind) {
    for (const StatisticsNumber& number : behind.numbers)
        caption.numbers.Add({caption.text.size() + number.position, number.length, number.isFailure});
    caption.text += behind.text;
}

void Show(MainForm& form, std::size_t index, const StatisticsCaption& caption) {
    if (form.ConCommMessage[index].Value() == caption.text) return;
    form.ConCommMessage[index].Set(caption.text);
    form.ShownStatistics[index] = caption.numbers;
}

}  // namespace

void RouteReply(MainForm& form) {
    // Q63: 0 without an instrument.
    form.ProtocolCode = Whole16(LeadingWholeNumber(Left(form.MeterCodeText, 2)));
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.judge != nullptr) ReceiveReply(form);
    const bool isSearching =
        form.CommandCode >= command::kFirstOfSearch && form.CommandCode <= command::kLastOfSearch;
    if (isSearching) RecordSearchHit(form, protocol);
    ShowStatistics(form);
}

void ShowStatistics(MainForm& form) {
    constexpr std::size_t kUsualLength = 100;
    StatisticsCaption total;
    total.text.reserve(kUsualLength);
    total.text = form.texts.beforeTotal;
    Add(total, WholeText(form.SendCount), false);
    total.text += form.texts.behindTotal;
    Show(form, 1, total);
    StatisticsCaption failures;
    failures.text.reserve(kUsualLength);
    AddFailures(failures, u"数据不完整 ", form.IncompleteCount);
    AddFailures(failures, u" 次;校验出错 ", form.CheckErrorCount);
    AddFailures(failures, u" 次;无应答 ", form.NoReplyCount);
    failures.text += u" 次; 错误率 ";
    if (form.SendCount >= 1) AddRate(failures, form);
    Show(form, 0, failures);
    total.text.append(9, u' ');
    Append(total, failures);
    Show(form, 2, total);
}

}  // namespace commtest
