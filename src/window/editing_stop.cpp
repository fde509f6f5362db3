#include "window/editing_stop.h"

#include "host_qt/words.h"

namespace commtest {

bool IsStoppedForEditing(const MainForm& form) {
    return !form.IsRunning() && form.LastStop().cause == StopCause::Editor && form.InputText.Visible();
}

std::optional<StateMessage> MessageOnEditing(const MainForm& form) {
    if (!IsStoppedForEditing(form)) return std::nullopt;
    return StateMessage{.look = StateMessage::Look::Tinted,
                        .glyph = Glyph::Pencil,
                        .text = Words::tr("编辑时通讯已停止，回车写入并继续")};
}

}  // namespace commtest
