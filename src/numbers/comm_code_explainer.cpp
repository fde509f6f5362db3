#include "numbers/comm_code_explainer.h"

#include "numbers/bcd_code_explainer.h"
#include "numbers/device_code_explainers.h"
#include "numbers/float_code_explainers.h"
#include "numbers/ieee_code_explainer.h"
#include "numbers/two_byte_explainers.h"
#include "runtime/number.h"

namespace commtest {

int ExplainerNumberOf(const Text& meterCode) { return LeadingWholeNumber(Mid(meterCode, 3, 2)); }

void ExplainCommCode(const Text& meterCode, const Text& code, Text& explanation) {
    explanation.clear();
    switch (ExplainerNumberOf(meterCode)) {
        case 0:
        case 2:
        case 7:
        case 8: return ExplainSignMagnitudeSwapped(code, explanation);
        case 1: return ExplainTwosComplement(code, explanation);
        case 3: return ExplainIeeeCode(code, explanation);
        case kExplainerOfDisplayCode: return ExplainDisplayCode(code, explanation);
        case 5: return ExplainBcdCode(code, explanation);
        case 6: return ExplainSignMagnitude(code, explanation);
        case 9: explanation = u"未编写"; return;  // Q33
        case 10: return ExplainFlowMeterBcd(code, explanation);
        case 12: return ExplainTqCode(code, explanation);
        default: return;
    }
}

}  // namespace commtest
