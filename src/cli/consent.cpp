#include "cli/consent.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kYesOption = {u"yes", {}, u"不询问；标准输入不是终端时必须给出"};

void RequireConsent(const Arguments& arguments, const Console& console) {
    if (arguments.Has(kYesOption.name) || console.Input().isTyped) return;
    throw arguments.BadUsage(u"标准输入不是终端，不能询问。同意改动目录时请加上 --yes"_s);
}

void AskForConsent(Console& console, TextView question) {
    if (console.Confirms(question)) return;
    throw Problem(ExitStatus::NoAccess, u"没有同意"_s);
}

}  // namespace commtest
