#include "numbers/explanation.h"

namespace commtest {

Step::Step(std::initializer_list<TextView> pieces) {
    for (const TextView piece : pieces) words_ += piece;
}

void AppendSteps(Text& explanation, std::initializer_list<Step> steps) {
    for (const Step& step : steps) explanation.append(step.Words()).append(kLineEnd).append(kLineEnd);
}

void AppendLines(Text& explanation, std::initializer_list<Step> lines) {
    for (const Step& line : lines) explanation.append(line.Words()).append(kLineEnd);
}

void AppendLastWords(Text& explanation, const Step& words) { explanation += words.Words(); }

}  // namespace commtest
