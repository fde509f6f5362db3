#include "window/follow_tick.h"

#include <QStyle>
#include <utility>

#include "window/bindings.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString WordsOf(HoldReason reason) {
    switch (reason) {
        case HoldReason::Editing: return u"正在修改，暂不跟随"_s;
        case HoldReason::Pointer: return u"指针在表内，暂不跟随"_s;
        case HoldReason::Scrolled: return u"刚滚动过，暂不跟随"_s;
        case HoldReason::None: break;
    }
    return u"表格跟随正在读取的参数"_s;
}

}  // namespace

FollowTick::FollowTick(Binder& binder, QWidget* parent) : QCheckBox(u"跟随"_s, parent), binder_(binder) {
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
    setProperty("quiet", reason != HoldReason::None);
    style()->polish(this);
}

}  // namespace commtest
