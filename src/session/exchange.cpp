#include "session/exchange.h"

namespace commtest {

Verdict VerdictOnNoReply() {
    Verdict verdict;
    verdict.logsError = true;
    verdict.makesReady = true;
    verdict.dropsReply = true;
    return verdict;
}

}  // namespace commtest
