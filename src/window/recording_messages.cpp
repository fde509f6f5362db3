#include "window/recording_messages.h"

#include "session/command_code.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kRecordingTab = 3;

}  // namespace

// Q223: the cursor stands behind the exchange that was shown.
std::optional<StateMessage> ReplayMessage(Binder& binder) {
    MainForm& form = binder.Form();
    if (form.CommandCode <= command::kReplayBuiltAbove) return std::nullopt;
    StateMessage message{.look = StateMessage::Look::Tinted, .glyph = Glyph::Replay};
    if (form.DemoFrames.empty()) {
        message.head = u"数据演示：尚未选定录制"_s;
        message.action = u"去选定"_s;
        message.act = [&binder] { binder.Event([&binder] { binder.Form().SSTab2.Choose(kRecordingTab); }); };
    } else {
        message.head = u"数据演示，未接仪表"_s;
        message.text = ToQt(form.DemoInstrument) + u'，' + ToQt(form.DemoNote);
        message.count = u"第 %1 / %2 条"_s.arg(form.DemoIndex).arg(std::ssize(form.DemoFrames));
    }
    return message;
}

QString CaptureCounts(const MainForm& form) {
    if (!form.ConSaveData.Value()) return {};
    QString words = u"采集"_s;
    if (!form.CaptureNote.empty()) words += u' ' + ToQt(form.CaptureNote);
    if (form.CaptureWaits) words += u" 暂停，正在导入"_s;
    words += u" 新 %1 已有 %2"_s.arg(GroupedNumber(form.CapturedCount), GroupedNumber(form.KnownPairCount));
    if (form.MissedPairCount > 0) words += u" 未存 %1"_s.arg(GroupedNumber(form.MissedPairCount));
    return words;
}

}  // namespace commtest
