#include "session/serial_link.h"

#include "runtime/number.h"
#include "runtime/runtime_error.h"
#include "session/main_form.h"
#include "session/port_settings.h"
#include "session/records.h"
#include "session/reply_routing.h"
#include "session/toolbar_commands.h"

namespace commtest {

namespace {

constexpr int kHousekeepingFrames = 50;

// False if the port cannot be had; the session is then switched off.
bool OpenPortIfClosed(MainForm& form) {
    if (form.MSComm1.PortOpen()) return true;
    form.MSComm1.SetPortOpen(true);
    if (form.MSComm1.PortOpen()) {
        ShowPortStatus(form);
        if (!form.MSComm1.LastProblem().empty()) form.StatusNote.Set(form.MSComm1.LastProblem());
        return true;
    }
    form.dialogs.ShowMessage(u"系统串口被占用,无法打开！", form.MSComm1.LastProblem());
    RunToolbarCommand(form, toolbar::kStartStop);
    return false;
}

void PutOnLine(MainForm& form, const std::string& bytes) {
    bool isOpen = false;
    PassOverError([&] { isOpen = OpenPortIfClosed(form); });
    if (!isOpen) return;
    if (form.CommandCode == command::kSendLineFeed) form.ConSendOutString[0].Set(u"\\0A");
    form.MSComm1.Output(bytes);
    form.Timer1[1].SetEnabled(true);
}

void CloseGate(MainForm& form) {
    if (form.MSComm1.PortOpen()) form.MSComm1.SetPortOpen(false);
    ShowPortStatus(form);
    form.Timer1[1].SetEnabled(false);
}

Text BeginningOfLogLine(const MainForm& form, const Text& shownFrame) {
    const Texts& texts = form.texts;
    Text line(texts.beforeSendCount);
    line += WholeText(form.SendCount);
    line += texts.beforeInstrument;
    line += form.ConMeterName[0].Value();
    line += texts.beforeSent;
    line += shownFrame;
    line += texts.beforeReceived;
    line += kLineEnd;
    return line;
}

// Every fiftieth frame the record is saved, if the user wants it, and begins anew.
void KeepRecordShort(MainForm& form) {
    if (form.SendCount % kHousekeepingFrames != 0 || form.CommandCode >= 1000) return;
    if (form.ConAutoSave[0].Value()) SaveRecord(form);
    form.ConCommString[1].Clear();
}

}  // namespace

void SendFrame(MainForm& form) {
    if (!form.IsRunning() && form.CommandCode <= 1000) {
        CloseGate(form);
        return;
    }
    Text shown;
    std::string bytes;
    PassOverErrors([&] { form.SendCount = Add32(form.SendCount, 1); },  //
                   [&] { shown = form.SendText; },                      //
                   [&] { form.RxEventCount = 0; },
                   [&] {
                       if (form.ShowMode.IsChosen(0)) ConvertHexText(shown, 0);
                   },
                   [&] { form.ConSendOutString[0].Set(shown); },
                   [&] { form.LogLine = BeginningOfLogLine(form, shown); },
                   [&] { HexTextToBytes(form, form.SendText, bytes); });
    if (form.CommandCode > 100000) return;
    if (form.CommandCode > 10000) {
        PassOverError([&] { form.companions.ReplayReply(form); });
    } else {
        PutOnLine(form, bytes);
    }
}

bool HexTextToBytes(MainForm& form, HexText frame, std::string& bytes) {
    EnsureLeadingBlank(frame);
    bytes.clear();
    for (std::size_t blank = 0; blank < frame.size(); blank += 3) {
        const auto value = HexPairValue(TextView(frame).substr(blank + 1, 2));
        if (!value) {
            form.dialogs.ShowMessage(u"对不起，数据串中含有非法字符,无法完成数据转换！", {});
            return false;
        }
        bytes += static_cast<char>(*value);
    }
    return true;
}

void MSComm1_OnComm(MainForm& form) {
    form.Timer1[1].SetEnabled(false);
    const std::string arrived = form.MSComm1.Input();
    // A lone byte does not extend the wait: the wait arithmetic counts on it.
    if (arrived.size() >= 2) form.RxEventCount = Add16(form.RxEventCount, 1);
    for (const char byte : arrived) AppendHexByte(form.ReplyText, static_cast<unsigned char>(byte));
    if (!form.ReplyText.empty()) FindEndWord(form);
    form.Timer1[1].SetEnabled(true);
}

void FindEndWord(MainForm& form) {
    const Protocol& protocol = form.ProtocolInUse();
    if (protocol.replyIsComplete == nullptr || !protocol.replyIsComplete(form)) {
        form.PartialReplyLength = Len(form.ReplyText);
        form.CycleStep = 3;
        return;
    }
    const bool isPart = protocol.continuesOnLineFeed && Contains(form.ReplyText, u"0A");
    form.CycleStep = 1;
    ListControl& sentFrames = form.ConSendOutString[0];
    if (sentFrames.IndexOf(form.SendText) < 0) sentFrames.Add(form.SendText);
    if (form.ConSaveData.Value()) form.companions.CaptureExchange(form);
    if (isPart) form.CycleStep = 7;
    RouteReply(form);
    KeepRecordShort(form);
    form.Timer1[1].SetInterval(ToWhole32(form.ConDelayTime.Value()));
}

}  // namespace commtest
