#include "session/serial_link.h"

#include "host/clock.h"
#include "host/dialogs.h"
#include "host/serial_port.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/cycle_step.h"
#include "session/main_form.h"
#include "session/port_settings.h"
#include "session/records.h"
#include "session/reply_routing.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

constexpr int kHousekeepingFrames = 50;

// False if the port cannot be had; button 4 is then pressed.
bool OpenPortIfClosed(MainForm& form) {
    if (form.MSComm1.PortOpen()) return true;
    form.MSComm1.SetPortOpen(true);
    if (form.MSComm1.PortOpen()) {
        ShowPortStatus(form);
        const Text caveat = form.MSComm1.LastProblem();
        if (!caveat.empty()) form.StatusNote.Set({Notice::Kind::PortCaveat, caveat});
        return true;
    }
    const Text reason = form.MSComm1.LastProblem();
    form.outside.dialogs.ShowMessage(u"系统串口被占用,无法打开！", reason);
    StartOrStop(form, {.cause = StopCause::PortRefused, .detail = reason});  // Q50: a toggle
    return false;
}

void PutOnLine(MainForm& form, const std::string& bytes) {
    bool isOpen = false;
    PassOverError([&] { isOpen = OpenPortIfClosed(form); });
    if (!isOpen) return;
    if (form.CommandCode == command::kSendLineFeed) form.SentFrames().Set(u"\\0A");
    form.UnderWay.requestTime = form.outside.clock.Microseconds();
    form.MSComm1.Output(bytes);
    form.PollTimer().SetEnabled(true);
}

void CloseGate(MainForm& form) {
    if (form.MSComm1.PortOpen()) form.MSComm1.SetPortOpen(false);
    ShowPortStatus(form);
    form.PollTimer().SetEnabled(false);
}

void BeginLogLine(MainForm& form, const Text& shownFrame) {
    const Texts& texts = form.texts;
    Text& line = form.LogLine;
    line = texts.beforeSendCount;
    line += WholeText(form.SendCount);
    line += texts.beforeInstrument;
    line += form.InstrumentName();
    line += texts.beforeSent;
    form.LogParts = {.frameAt = line.size(), .frameEnd = line.size() + shownFrame.size()};
    line += shownFrame;
    line += texts.beforeReceived;
    line += kLineEnd;
}

void BeginExchange(MainForm& form) { form.UnderWay = {.number = form.SendCount, .request = form.SendText}; }

void NoteArrival(MainForm& form) {
    form.UnderWay.lastByteTime = form.outside.clock.Microseconds();
    if (!form.UnderWay.firstByteTime) form.UnderWay.firstByteTime = form.UnderWay.lastByteTime;
}

// Q65: every fiftieth frame the record begins anew, saved or not.
void KeepRecordShort(MainForm& form) {
    if (form.SendCount % kHousekeepingFrames != 0) return;
    if (form.CommandCode >= command::kRecordKeptShortBelow) return;
    if (form.ConAutoSave[0].Value()) SaveRecord(form);
    form.Record().Clear();
}

}  // namespace

void SendFrame(MainForm& form) {
    if (!form.IsRunning() && form.CommandCode <= command::kSentThoughStoppedAbove) {
        CloseGate(form);
        return;
    }
    Text shown;
    std::string bytes;
    PassOverErrors([&] { form.SendCount = Add32(form.SendCount, 1); },  // Q66: continue bytes, too
                   [&] { shown = form.SendText; },                      //
                   [&] { form.RxEventCount = 0; },
                   [&] {
                       if (form.ShowMode.IsChosen(0)) ConvertHexText(shown, 0);
                   },
                   [&] { form.SentFrames().Set(shown); }, [&] { BeginLogLine(form, shown); },  //
                   [&] { BeginExchange(form); }, [&] { HexTextToBytes(form, form.SendText, bytes); });
    if (form.CommandCode > command::kNothingSentAbove) return;
    if (form.CommandCode > command::kReplaySentAbove) {
        PassOverError([&] { form.companions.ReplayReply(form); });
    } else {
        PutOnLine(form, bytes);
    }
}

bool HexTextToBytes(MainForm& form, const HexText& frame, std::string& bytes) {
    bytes.clear();
    for (std::size_t pair = frame.starts_with(u' ') ? 1 : 0; pair <= frame.size(); pair += 3) {
        const auto value = HexPairValue(TextView(frame).substr(pair, 2));
        if (!value) {
            form.outside.dialogs.ShowMessage(u"对不起，数据串中含有非法字符,无法完成数据转换！", {});
            return false;  // Q57: what stands in `bytes` is sent
        }
        bytes += static_cast<char>(*value);
    }
    return true;
}

void MSComm1_OnComm(MainForm& form) {
    form.PollTimer().SetEnabled(false);
    const std::string arrived = form.MSComm1.Input();
    // Q37: a lone byte does not lengthen the wait.
    if (arrived.size() >= 2) form.RxEventCount = Add16(form.RxEventCount, 1);
    if (!arrived.empty()) NoteArrival(form);
    // Q58: also behind the end of a reply.
    AppendHexBytes(form.ReplyText, arrived);
    if (!form.ReplyText.empty()) FindEndWord(form);
    form.PollTimer().SetEnabled(true);  // Q43: also of a stopped session
}

void FindEndWord(MainForm& form) {
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.replyIsComplete == nullptr || !protocol.replyIsComplete(form.ReplyText, form.SendText)) {
        form.PartialReplyLength = Len(form.ReplyText);
        form.CycleStep = cycle_step::kReceiving;
        return;
    }
    const bool isPart = protocol.continuesOnLineFeed && Contains(form.ReplyText, u"0A");
    form.CycleStep = cycle_step::kReady;
    ListControl& sentFrames = form.SentFrames();
    if (sentFrames.IndexOf(form.SendText) < 0) sentFrames.Add(form.SendText);  // Q59: not as it was shown
    if (form.ConSaveData.Value()) form.companions.CaptureExchange(form);
    if (isPart) form.CycleStep = cycle_step::kNextPart;
    RouteReply(form);
    KeepRecordShort(form);
    form.PollTimer().SetInterval(ToWhole32(form.ConDelayTime.Value()));
}

}  // namespace commtest
