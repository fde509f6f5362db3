#pragma once

#include "window/binder.h"

namespace commtest {

class NoteBar;
class TextSpinBox;

// ConMeterAddr. While it is empty the session keeps the former address, which comes back when the field is
// left or the session starts.
TextSpinBox* MakeAddressField(Binder& binder, NoteBar& notes);

}  // namespace commtest
