#include "session/polling_cycle.h"

#include <cmath>

#include "host/clock.h"
#include "host/serial_port.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/cycle_step.h"
#include "session/interval_timer.h"
#include "session/main_form.h"
#include "session/port_settings.h"
#include "session/reply_routing.h"
#include "session/serial_link.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

constexpr int kShortestReplyTimeout = 300;  // milliseconds
constexpr int kIdleWaitTicks = 3;           // a silent instrument is given up on at the tick behind these

double TickLengthOfBaudRate(const MainForm& form) {
    return Finite(300.0 / std::floor(ToNumber(Trim(form.BaudRate().Value()))) * 500.0);
}

void BeginWait(MainForm& form) {
    form.WaitTicks = 0;
    form.CycleStep = cycle_step::kWaiting;
    form.PartialReplyLength = 0;
    form.ReplyTimeout = Whole16(TickLengthOfBaudRate(form));
    if (form.ReplyTimeout < kShortestReplyTimeout) form.ReplyTimeout = kShortestReplyTimeout;
    form.PollTimer().SetInterval(form.ReplyTimeout);
}

// False when a search is over: the tick then ends at once, its timer disabled.
bool SendNextFrame(MainForm& form) {
    const bool isSearching =
        form.CommandCode >= command::kFirstOfSearch && form.CommandCode <= command::kLastOfSearch;
    if (form.CycleStep == cycle_step::kReady && isSearching && !form.companions.NextSearchStep(form)) {
        StartOrStop(form, {StopCause::SearchOver});
        return false;
    }
    BeginWait(form);
    BuildReadRequest(form);
    SendFrame(form);
    return true;
}

void CountWait(MainForm& form) {
    form.WaitTicks = Add16(form.WaitTicks, 1);  // Q44: not guarded
    // Q38: bytes buy ticks, they do not begin the wait anew.
    if (form.WaitTicks <= Add16(form.RxEventCount, kIdleWaitTicks)) return;
    if (form.CommandCode < command::kTimeOutsRoutedBelow) RouteReply(form);
    form.CycleStep = cycle_step::kReady;
}

void TickPollingCycle(MainForm& form) {
    Timer& timer = form.PollTimer();
    timer.SetEnabled(false);
    switch (form.CycleStep) {
        case cycle_step::kIdle:
            form.WaitTicks = 0;
            timer.SetInterval(Whole32(TickLengthOfBaudRate(form)));  // Q36: without a floor
            break;
        case cycle_step::kReady:
        case cycle_step::kFirstOfSearch:
            if (!SendNextFrame(form)) return;
            break;
        case cycle_step::kWaiting:
        case cycle_step::kReceiving: CountWait(form); break;
        case cycle_step::kResume:
            timer.SetInterval(ToWhole32(form.ConDelayTime.Value()));
            form.CycleStep = cycle_step::kReady;
            break;
        case cycle_step::kNextPart: BeginWait(form); break;  // Q39: this tick is not of the wait
        default: break;
    }
    if (form.IsRunning()) {
        timer.SetEnabled(true);
        return;
    }
    // Q42: the tick behind a stop closes the port.
    if (form.MSComm1.PortOpen()) form.MSComm1.SetPortOpen(false);
    ShowPortStatus(form);
}

void TickClock(MainForm& form) {
    if (form.PollTimer().Enabled()) form.ComShow.SetVisible(!form.ComShow.Visible());
    form.StatusBar1[2].Set(form.texts.clockPanel(form.outside.clock.Now()));
}

void TakeNextMultiAddress(MainForm& form) {
    form.MultiAddressIndex = Add16(form.MultiAddressIndex, 1);
    if (form.MultiAddressIndex > form.MultiAddressCount) form.MultiAddressIndex = 1;
    const auto at = static_cast<std::size_t>(form.MultiAddressIndex) - 1;
    if (at >= form.MultiAddressList.size()) throw RuntimeError(RuntimeError::kSubscript);
    form.ConMeterAddr.Set(WholeText(form.MultiAddressList[at]));
}

void BuildReplayFrame(MainForm& form) {
    form.companions.TakeReplayFrame(form);
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.showFrameAddress != nullptr) protocol.showFrameAddress(form, form.SendText);
}

}  // namespace

void Timer1_Timer(MainForm& form, int index) {
    if (index == 0) TickClock(form);
    if (index == 1) TickPollingCycle(form);
    if (index == 2) TickIntervalTimer(form);
}

void BuildReadRequest(MainForm& form) {
    if (form.CommandCode > command::kReplayBuiltAbove) {
        BuildReplayFrame(form);
        return;
    }
    if (form.Check1.Value()) TakeNextMultiAddress(form);  // Q51: in front of a written frame, too
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.buildRead != nullptr) protocol.buildRead(form, form.outside.clock);
}

void BuildWriteRequest(MainForm& form) {
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.buildWrite != nullptr) protocol.buildWrite(form, form.outside.dialogs);
    form.CommandCode = Add32(form.CommandCode, command::kWriteOffset);  // Q47: also where nothing was built
    StartInShortWay(form);
}

}  // namespace commtest
