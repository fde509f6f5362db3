#pragma once

#include <QAbstractButton>

#include "window/binder.h"

namespace commtest {

// Binds a tick whose click asks the user: where an answer ends the click with a run-time error, the tick goes
// back.
void BindAskingTick(Binder& binder, TickControl& control, QAbstractButton& button);

}  // namespace commtest
