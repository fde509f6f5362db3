#include "commands/not_there_yet.h"

#include "session/main_form.h"

namespace commtest {

void SayNotThereYet(MainForm& form, Feature feature) {
    form.StatusNote.Set({.kind = Notice::Kind::NotThereYet, .feature = feature});
}

}  // namespace commtest
