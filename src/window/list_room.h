#pragma once

#include <QWidget>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class NoteBar;
class StoreWait;
class WorkBand;

// What long work with lists needs of the window.
struct ListRoom {
    Binder& binder;
    const Theme& theme;
    NoteBar& notes;
    WorkBand& band;
    StoreWait& wait;  // covers what does not go together with the work
    QWidget& window;
};

}  // namespace commtest
