#include "window/replay_hint.h"

#include <QApplication>
#include <utility>

#include "host_qt/words.h"
#include "session/command_code.h"

namespace commtest {

namespace {

constexpr int kRecordingTab = 3;

}  // namespace

ReplayHint::ReplayHint(Binder& binder, NoteBar& notes, QObject* parent)
    : QObject(parent), form_(binder.Form()), notes_(notes) {
    binder.AtEachLook([this] { Follow(); });
}

// Behind the box that stands when a replay begins.
bool ReplayHint::IsDue() const {
    return form_.CommandCode > command::kReplayBuiltAbove && form_.DemoFrames.empty() &&
           form_.SSTab2.IsChosen(kRecordingTab) && QApplication::activeModalWidget() == nullptr;
}

void ReplayHint::Follow() {
    const bool isDue = IsDue();
    if (std::exchange(wasDue_, isDue) || !isDue) return;
    notes_.Say(Words::tr("数据演示：请双击选定录制，再按 F5"));
}

}  // namespace commtest
