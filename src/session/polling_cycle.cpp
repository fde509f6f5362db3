#include "session/polling_cycle.h"

#include <cmath>

#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/interval_timer.h"
#include "session/main_form.h"
#include "session/port_settings.h"
#include "session/reply_routing.h"
#include "session/serial_link.h"
#include "session/toolbar_commands.h"
#include "session/wall_clock.h"

namespace commtest {

namespace {

constexpr int kShortestReplyTimeout = 300;  // milliseconds
constexpr int kIdleWaitTicks = 3;           // a silent instrument is given up on at the tick behind these

double TickLengthOfBaudRate(const MainForm& form) {
    return Finite(300.0 / std::floor(ToNumber(Trim(form.ConCommSetting[1].Value()))) * 500.0);
}

void BeginWait(MainForm& form) {
    form.WaitTicks = 0;
    form.CycleStep = 2;
    form.PartialReplyLength = 0;
    form.ReplyTimeout = Whole16(TickLengthOfBaudRate(form));
    if (form.ReplyTimeout < kShortestReplyTimeout) form.ReplyTimeout = kShortestReplyTimeout;
    form.Timer1[1].SetInterval(form.ReplyTimeout);
}

// False when a search is over: the tick then ends at once, its timer disabled.
bool SendNextFrame(MainForm& form) {
    const bool isSearching = form.CommandCode >= 1001 && form.CommandCode <= 9999;
    if (form.CycleStep == 1 && isSearching && !form.companions.NextSearchStep(form)) {
        RunToolbarCommand(form, toolbar::kStartStop);
        return false;
    }
    BeginWait(form);
    BuildReadRequest(form);
    SendFrame(form);
    return true;
}

void CountWait(MainForm& form) {
    form.WaitTicks = Add16(form.WaitTicks, 1);
    if (form.WaitTicks <= Add16(form.RxEventCount, kIdleWaitTicks)) return;
    if (form.CommandCode < 1000) RouteReply(form);
    form.CycleStep = 1;
}

void TickPollingCycle(MainForm& form) {
    Timer& timer = form.Timer1[1];
    timer.SetEnabled(false);
    switch (form.CycleStep) {
        case 0:
            form.WaitTicks = 0;
            timer.SetInterval(Whole32(TickLengthOfBaudRate(form)));
            break;
        case 1:
        case 6:
            if (!SendNextFrame(form)) return;
            break;
        case 2:
        case 3: CountWait(form); break;
        case 4:
            timer.SetInterval(ToWhole32(form.ConDelayTime.Value()));
            form.CycleStep = 1;
            break;
        case 7: BeginWait(form); break;
        default: break;
    }
    if (form.IsRunning()) {
        timer.SetEnabled(true);
        return;
    }
    if (form.MSComm1.PortOpen()) form.MSComm1.SetPortOpen(false);
    ShowPortStatus(form);
}

void TickClock(MainForm& form) {
    if (form.Timer1[1].Enabled()) form.ComShow.SetVisible(!form.ComShow.Visible());
    form.StatusBar1[2].Set(ClockPanelText(form.clock.Now()));
}

void TakeNextMultiAddress(MainForm& form) {
    form.MultiAddressIndex = Add16(form.MultiAddressIndex, 1);
    if (form.MultiAddressIndex > form.MultiAddressCount) form.MultiAddressIndex = 1;
    const auto at = static_cast<std::size_t>(form.MultiAddressIndex) - 1;
    if (at >= form.MultiAddressList.size()) throw RuntimeError(RuntimeError::kSubscript);
    form.ConMeterAddr.Set(WholeText(form.MultiAddressList[at]));
}

void TakeReplayFrame(MainForm& form) {
    const auto count = static_cast<int>(form.DemoFrames.size());
    if (form.DemoIndex >= count) form.DemoIndex = 0;
    if (count == 0) throw RuntimeError(RuntimeError::kSubscript);
    form.SendText = form.DemoFrames[static_cast<std::size_t>(form.DemoIndex)];
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
    if (form.CommandCode > 10000) {
        TakeReplayFrame(form);
        return;
    }
    if (form.Check1.Value()) TakeNextMultiAddress(form);
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.buildRead != nullptr) protocol.buildRead(form);
}

void BuildWriteRequest(MainForm& form) {
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.buildWrite != nullptr) protocol.buildWrite(form);
    form.CommandCode = Add32(form.CommandCode, command::kWriteOffset);
    StartInShortWay(form);
}

void StartInShortWay(MainForm& form) {
    if (form.IsRunning()) return;
    form.SetRunning(true);
    form.CycleStep = 1;
    form.Timer1[1].SetEnabled(true);
}

void StopInShortWay(MainForm& form) {
    if (!form.IsRunning()) return;
    form.SetRunning(false);
    form.CycleStep = 0;
}

}  // namespace commtest
