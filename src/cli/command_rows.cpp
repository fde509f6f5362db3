#include "cli/command_rows.h"

#include "cli/write_words.h"
#include "session/main_form.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kCommandConsentOption = {u"yes", {}, u"发出命令时不询问；标准输入不是终端时必须给出"};

bool IsCommandRow(const MainForm& form, int row) {
    const Protocol& protocol = form.ProtocolInUse();
    const bool isThere = row >= 1 && row <= LastRow(form.ParameterGrid());
    const bool isWritten = protocol.buildWrite != nullptr && protocol.rows.whyUnreadable != nullptr;
    return isThere && isWritten && protocol.rows.whyUnreadable(form, row) == Unreadable::Command;
}

bool IsCommandWithoutData(const MainForm& form, int row) {
    if (!IsCommandRow(form, row)) return false;
    const ShownLimits limits = LimitsOf(form, row);
    return !limits.lower && !limits.upper;
}

void RequireConsentToCommands(const MainForm& form, const std::vector<int>& rows, const Arguments& arguments,
                              Console& console) {
    if (arguments.Has(kCommandConsentOption.name)) return;
    for (const int row : rows) {
        if (!IsCommandRow(form, row)) continue;
        const QString command = RowName(form, row) + u" 是命令，仪表收到后立即执行"_s;
        if (!console.Input().isTyped) {
            throw arguments.BadUsage(command + u"，没有写入。确实要发出请加 --yes"_s);
        }
        const QString question = command + u"。发出吗?"_s;
        if (console.Confirms(question.toStdU16String())) continue;
        throw Problem(ExitStatus::BadUsage, u"没有同意，没有写入"_s);
    }
}

}  // namespace commtest
