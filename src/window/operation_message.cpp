#include "window/operation_message.h"

#include "commands/operation_menus.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

std::optional<StateMessage> OperationMessage(const MainForm& form) {
    const TextView operation = OperationInForce(form);
    if (operation.empty()) return std::nullopt;
    StateMessage message;
    message.text = u"操作 "_s + ToQt(operation);
    return message;
}

}  // namespace commtest
