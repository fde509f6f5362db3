#include "cli/list_progress.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kStepsALook = 256;
constexpr std::int64_t kRefreshPeriod = 100;  // milliseconds
constexpr std::int64_t kShortestTime = 1000;  // milliseconds, before a time left is told

}  // namespace

Text WordsOn(const ListPlace& place, std::int64_t milliseconds) {
    Text words = WholeText(place.rows);
    words += u" 行，";
    words += WholeText(place.instruments);
    words += u" 台仪表";
    if (place.size == 0) return words;
    const double share = static_cast<double>(place.bytesRead) / static_cast<double>(place.size);
    words += u"，";
    words += WholeText(static_cast<std::int64_t>(share * 100));
    words += u"%";
    if (milliseconds < kShortestTime || place.bytesRead == 0) return words;
    const double left = static_cast<double>(milliseconds) * (1 - share) / share / 1000;
    words += u"，还需 ";
    words += WholeText(static_cast<std::int64_t>(left) + 1);
    words += u" 秒";
    return words;
}

ListProgress::ListProgress(Console& console) : console_(console), interrupt_([this] { isEnded_ = true; }) {}

bool ListProgress::IsEnded() {
    QCoreApplication::processEvents();
    return isEnded_;
}

bool ListProgress::Run(const std::function<bool()>& step, const std::function<ListPlace()>& look) {
    QElapsedTimer clock;
    clock.start();
    std::int64_t shown = 0;
    for (std::int64_t steps = 1; step(); ++steps) {
        if (steps % kStepsALook != 0) continue;
        if (IsEnded()) break;
        if (clock.elapsed() - shown < kRefreshPeriod) continue;
        shown = clock.elapsed();
        console_.ShowLive(WordsOn(look(), shown));
    }
    console_.HideLive();
    return !IsEnded();
}

}  // namespace commtest
