#include "window/recording_messages.h"

#include "host_qt/words.h"
#include "session/command_code.h"
#include "window/pieces.h"

namespace commtest {

namespace {

constexpr int kRecordingTab = 3;

}  // namespace

// Q223: the cursor stands behind the exchange that was shown.
std::optional<StateMessage> ReplayMessage(Binder& binder) {
    MainForm& form = binder.Form();
    if (form.CommandCode <= command::kReplayBuiltAbove) return std::nullopt;
    StateMessage message{.look = StateMessage::Look::Tinted, .glyph = Glyph::Replay};
    if (form.DemoFrames.empty()) {
        message.head = Words::tr("数据演示：尚未选定录制");
        message.action = Words::tr("去选定");
        message.act = [&binder] { binder.Event([&binder] { binder.Form().SSTab2.Choose(kRecordingTab); }); };
    } else {
        message.head = Words::tr("数据演示，未接仪表");
        message.text = Words::tr("%1，%2").arg(ToQt(form.DemoInstrument), ToQt(form.DemoNote));
        message.count = Words::tr("第 %1 / %2 条").arg(form.DemoIndex).arg(std::ssize(form.DemoFrames));
    }
    return message;
}

QString CaptureCounts(const MainForm& form) {
    if (!form.ConSaveData.Value()) return {};
    QString words = Words::tr("采集");
    if (!form.CaptureNote.empty()) words += u' ' + ToQt(form.CaptureNote);
    if (form.CaptureWaits) words += Words::tr(" 暂停，正在导入");
    words += Words::tr(" 新 %1 已有 %2")
                 .arg(GroupedNumber(form.CapturedCount), GroupedNumber(form.KnownPairCount));
    if (form.MissedPairCount > 0) words += Words::tr(" 未存 %1").arg(GroupedNumber(form.MissedPairCount));
    return words;
}

}  // namespace commtest
