#include "window/operation_message.h"

#include "commands/operation_menus.h"
#include "session/command_code.h"
#include "window/pieces.h"
#include "window/search_state.h"

namespace commtest {

using namespace Qt::StringLiterals;

std::optional<StateMessage> OperationMessage(const MainForm& form) {
    const TextView entry = OperationInForce(form);
    const QString search = StateOfSearch(form) == SearchState::None ? QString() : u"仪表搜索："_s;
    if (!entry.empty()) return StateMessage{.text = u"操作 "_s + search + ToQt(entry)};
    const std::int32_t code = form.CommandCode % command::kWriteOffset;
    if (form.ProtocolInUse().name.empty() || code == 0) return std::nullopt;
    return StateMessage{.text = u"操作码 %1"_s.arg(code)};
}

}  // namespace commtest
