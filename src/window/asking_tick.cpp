#include "window/asking_tick.h"

#include "runtime/runtime_error.h"
#include "window/bindings.h"

namespace commtest {

namespace {

void SetOrGoBack(TickControl& control, bool ticked) {
    try {
        control.Set(ticked);
    } catch (const RuntimeError&) {
        control.Set(false);
        throw;
    }
}

}  // namespace

void BindAskingTick(Binder& binder, TickControl& control, QAbstractButton& button) {
    button.setCheckable(true);
    binder.Watch(control, [&control, &button] { button.setChecked(control.Value()); });
    QObject::connect(&button, &QAbstractButton::clicked, &button, [&binder, &control](bool ticked) {
        binder.Event([&] { SetOrGoBack(control, ticked); });
    });
    BindPresence(binder, control, button);
}

}  // namespace commtest
