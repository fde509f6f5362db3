#include "window/port_return.h"

#include "commands/toolbar_commands.h"
#include "host/serial_port.h"
#include "host_qt/words.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString GoOnWords() { return Words::tr("继续"); }

}  // namespace

PortReturn::PortReturn(Binder& binder, StateLine& state, NoteBar& notes, QObject* parent)
    : QObject(parent), binder_(binder), notes_(notes) {
    state.AddSource(StateLine::Rank::PortIsBack, [this] { return Message(); });
    binder.Watch(binder.Form().RunningState(), [this] {
        if (binder_.Form().IsRunning()) TellGone();
    });
    // Other words come in between.
    connect(&notes, &NoteBar::Ended, this, [this] {
        if (!words_.isEmpty()) AskInNote();
    });
}

void PortReturn::TellBack(const QString& device) {
    const MainForm& form = binder_.Form();
    if (form.IsRunning() || form.LastStop().cause != StopCause::PortLost) return;
    words_ = Words::tr("COM%1 已恢复").arg(form.MSComm1.CommPort());
    device_ = device;
    AskInNote();
    binder_.Look();
}

void PortReturn::TellGone() {
    words_.clear();
    notes_.WithdrawQuestion();
}

std::optional<StateMessage> PortReturn::Message() {
    if (words_.isEmpty()) return std::nullopt;
    return StateMessage{.look = StateMessage::Look::Tinted,
                        .glyph = Glyph::Plug,
                        .text = u"%1 (%2)"_s.arg(words_, device_),
                        .action = GoOnWords(),
                        .act = [this] { GoOn(); }};
}

void PortReturn::AskInNote() {
    notes_.Ask(words_, Glyph::Plug, GoOnWords(), [this] { GoOn(); });
}

void PortReturn::GoOn() {
    if (words_.isEmpty()) return;
    binder_.Event([this] { RunToolbarCommand(binder_.Form(), toolbar::kStartStop); });
}

}  // namespace commtest
