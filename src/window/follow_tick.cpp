#include "window/follow_tick.h"

#include <utility>

#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/look.h"

namespace commtest {

namespace {

QString WordsOf(HoldReason reason) {
    switch (reason) {
        case HoldReason::Editing: return Words::tr("正在修改，暂不跟随");
        case HoldReason::Pointer: return Words::tr("指针在表内，暂不跟随");
        case HoldReason::Scrolled: return Words::tr("刚滚动过，暂不跟随");
        case HoldReason::None: break;
    }
    return Words::tr("表格跟随正在读取的参数");
}

}  // namespace

FollowTick::FollowTick(Binder& binder, QWidget* parent)
    : QCheckBox(Words::tr("跟随"), parent), binder_(binder) {
    TickControl& stands = binder.Form().ConSelChange;
    ShowReason(HoldReason::None);
    binder.Watch(stands, [this, &stands] { setChecked(!stands.Value()); });
    connect(this, &QCheckBox::clicked, this,
            [this, &stands](bool follows) { binder_.Event([&] { stands.Set(!follows); }); });
    BindPresence(binder, stands, *this);
}

void FollowTick::AskForReason(std::function<HoldReason()> reason) {
    binder_.AtEachLook([this, reason = std::move(reason)] {
        const HoldReason now = reason();
        if (now != shown_) ShowReason(now);
    });
}

void FollowTick::ShowReason(HoldReason reason) {
    shown_ = reason;
    setToolTip(WordsOf(reason));
    setAccessibleDescription(WordsOf(reason));
    SetLook(*this, reason == HoldReason::None ? Look::Plain : Look::Quiet);
}

}  // namespace commtest
