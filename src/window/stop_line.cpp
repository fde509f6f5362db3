#include "window/stop_line.h"

#include "host/serial_port.h"
#include "host_qt/words.h"
#include "session/answer_words.h"
#include "session/records.h"
#include "session/wall_clock.h"
#include "window/error_words.h"
#include "window/pieces.h"
#include "window/record_view.h"
#include "window/search_state.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPortTab = 1;
constexpr int kMinutesOfADay = 24 * 60;

// A run-time error that ends the polling leaves the button as it is.
bool HasStopped(const MainForm& form) {
    if (!form.IsRunning()) return form.LastStop().cause != StopCause::None;
    return form.LastStop().cause == StopCause::RuntimeError && !form.PollTimer().Enabled();
}

bool IsSame(const Stop& one, const Stop& other) {
    return one.cause == other.cause && one.exchange == other.exchange && one.outcome == other.outcome &&
           one.detail == other.detail;
}

StateMessage Stopped(const QString& text) { return {.head = Words::tr("已停止"), .text = text}; }

StateMessage BehindExchange(const QString& cause, const Stop& stop) {
    return Stopped(Words::tr("%1，第 %2 次之后").arg(cause).arg(stop.exchange));
}

// Q53: a turn beyond midnight does not come at its time.
StateMessage OfInterval(const MainForm& form) {
    const int minutes = SecondsOfHourMinute(form.IntervalLastRun) / 60 + form.IntervalMinutes;
    const QString pace = Words::tr("每 %1 分钟").arg(form.IntervalMinutes);
    if (minutes >= kMinutesOfADay) return {.head = u"间歇性通讯"_s, .text = pace};
    const QString time =
        u"%1:%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0'));
    return {.head = u"间歇性通讯"_s, .text = Words::tr("%1 开始下一次，%2").arg(time, pace)};
}

}  // namespace

StopLine::StopLine(Binder& binder, StateLine& line, RecordView& record)
    : QObject(&line), binder_(binder), form_(binder.Form()), record_(record) {
    line.AddSource(StateLine::Rank::Failure, [this] { return Failure(); });
    line.AddSource(StateLine::Rank::Stopped, [this] { return Quiet(); });
}

// What is said of a failure stays as it was found, whatever is chosen behind it.
void StopLine::Follow() {
    if (!HasStopped(form_)) {
        shown_ = {};
        failure_.reset();
        FollowPort();
    } else if (!IsSame(shown_, form_.LastStop())) {
        shown_ = form_.LastStop();
        failure_.reset();
        const StateMessage made = MakeFailure();
        if (!made.text.isEmpty()) failure_ = made;
    }
}

// A device that has gone is not found any more.
void StopLine::FollowPort() {
    if (!form_.IsRunning()) {
        port_ = 0;
    } else if (port_ != form_.MSComm1.CommPort()) {
        port_ = form_.MSComm1.CommPort();
        device_ = ToQt(form_.MSComm1.Device());
    }
}

QString StopLine::PortInUse() const {
    const QString name = u"COM%1"_s.arg(form_.MSComm1.CommPort());
    return port_ == form_.MSComm1.CommPort() && !device_.isEmpty() ? u"%1 (%2)"_s.arg(name, device_) : name;
}

std::optional<StateMessage> StopLine::Failure() {
    Follow();
    if (!failure_ || shown_.cause != StopCause::Exception || HoldsStop()) return failure_;
    StateMessage message = *failure_;  // there is nothing to show any more
    message.action.clear();
    return message;
}

StateMessage StopLine::MakeFailure() {
    switch (shown_.cause) {
        case StopCause::Exception: return OfException();
        case StopCause::PortLost: return OfPort(Words::tr("%1 已断开，插回后可继续").arg(PortInUse()));
        case StopCause::PortRefused:
            return OfPort(u"系统串口被占用,无法打开！ %1"_s.arg(
                shown_.detail.empty() ? PortInUse()
                                      : Words::tr("%1，%2").arg(u"COM%1"_s.arg(form_.MSComm1.CommPort()),
                                                                ToQt(shown_.detail))));
        case StopCause::RuntimeError: break;
        default: return {};
    }
    const QString fault = FaultyField(shown_.error, form_);
    const QString message = ToQt(shown_.detail).simplified();
    return {.look = StateMessage::Look::Failure,
            .glyph = Glyph::Warning,
            .head = Words::tr("已停止"),
            .text = fault.isEmpty() ? message : Words::tr("%1，%2").arg(message, fault)};
}

StateMessage StopLine::OfException() {
    const Outcome& outcome = *shown_.outcome;
    return {
        .look = StateMessage::Look::Failure,
        .glyph = Glyph::Warning,
        .head = Words::tr("已停止"),
        .text = Words::tr("第 %1 次，%2").arg(outcome.exchange.number).arg(ToQt(AnswerWords(form_, outcome))),
        .action = Words::tr("查看记录"),
        .act = [this] { ShowRecord(); }};
}

StateMessage StopLine::OfPort(const QString& text) {
    return {.look = StateMessage::Look::Failure,
            .glyph = Glyph::Warning,
            .head = Words::tr("已停止"),
            .text = text,
            .action = u"串口设置"_s,
            .act = [this] { binder_.Event([this] { form_.SSTab2.Choose(kPortTab); }); }};
}

std::optional<StateMessage> StopLine::Quiet() const {
    switch (shown_.cause) {
        case StopCause::Editor:
            return StateMessage{.head = Words::tr("编辑时停止"),
                                .text = Words::tr("第 %1 次之后，按 F5 继续").arg(shown_.exchange)};
        case StopCause::User:
            return BehindExchange(StateOfSearch(form_) == SearchState::None
                                      ? Words::tr("按 %1").arg(ToQt(form_.texts.stop))
                                      : Words::tr("搜索中止"),
                                  shown_);
        case StopCause::Questions: return BehindExchange(Words::tr("填写仪表地址"), shown_);
        case StopCause::Search: return BehindExchange(Words::tr("仪表搜索"), shown_);
        case StopCause::SearchOver: return BehindExchange(Words::tr("仪表搜索结束"), shown_);
        case StopCause::Interval:
            return form_.TimeSetup.Value() ? OfInterval(form_) : BehindExchange(u"间歇性通讯"_s, shown_);
        default: return std::nullopt;
    }
}

bool StopLine::HoldsStop() const { return record_.Holds(*shown_.outcome); }

// The layout may show the conversion texts alone.
void StopLine::ShowRecord() {
    if (!form_.Record().Visible()) binder_.Event([this] { ConShowCommand_Click(form_); });
    record_.GoTo(*shown_.outcome);
}

}  // namespace commtest
