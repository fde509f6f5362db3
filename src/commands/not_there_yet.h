#pragma once

#include "host/notice.h"

namespace commtest {

class MainForm;

// Tells the user that a feature is not built yet.
void SayNotThereYet(MainForm& form, Feature feature);

}  // namespace commtest
