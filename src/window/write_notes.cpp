#include "window/write_notes.h"

#include "host_qt/words.h"
#include "window/grid_view.h"
#include "window/note_bar.h"
#include "window/write_words.h"

namespace commtest {

namespace {

void Tell(const MainForm& form, const ParameterWrite& write, NoteBar& notes) {
    const QString note = Words::tr("%1：%2").arg(RowName(form, write.Row()), WordsOn(form, write));
    const WriteLook look = LookOf(write.State());
    if (look.weight == WriteLook::Weight::Warning) {
        notes.Warn(note, look.glyph);
    } else {
        notes.Say(note);
    }
}

}  // namespace

void FollowWrites(Binder& binder, WriteWatch& writes, GridView& grid, NoteBar& notes) {
    binder.AtEachLook([&form = binder.Form(), &writes, &grid, &notes] {
        for (const int row : writes.Follow()) {
            grid.ShowWrite(row);
            const ParameterWrite* write = writes.Of(row);
            if (write != nullptr) Tell(form, *write, notes);
        }
    });
}

}  // namespace commtest
