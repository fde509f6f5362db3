#include "window/operation_message.h"

#include "commands/operation_menus.h"
#include "host_qt/words.h"
#include "session/command_code.h"
#include "window/pieces.h"
#include "window/search_state.h"

namespace commtest {

std::optional<StateMessage> OperationMessage(const MainForm& form) {
    const TextView entry = OperationInForce(form);
    const QString search = StateOfSearch(form) == SearchState::None ? QString() : Words::tr("仪表搜索：");
    if (!entry.empty()) return StateMessage{.text = Words::tr("操作 %1").arg(search + ToQt(entry))};
    const std::int32_t code = form.CommandCode % command::kWriteOffset;
    if (form.ProtocolInUse().name.empty() || code == 0) return std::nullopt;
    return StateMessage{.text = Words::tr("操作码 %1").arg(code)};
}

}  // namespace commtest
