#include "cli/suggestion.h"

#include <algorithm>
#include <vector>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// Letters to put in, leave out, replace or swap with their neighbour.
qsizetype DistanceOf(const QString& one, const QString& other) {
    const auto width = static_cast<std::size_t>(other.size()) + 1;
    std::vector<std::vector<qsizetype>> all(static_cast<std::size_t>(one.size()) + 1,
                                            std::vector<qsizetype>(width));
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = 0; j < width; ++j) {
            if (i == 0 || j == 0) {
                all[i][j] = static_cast<qsizetype>(i + j);
                continue;
            }
            const auto a = static_cast<qsizetype>(i) - 1;
            const auto b = static_cast<qsizetype>(j) - 1;
            const qsizetype replaced = all[i - 1][j - 1] + (one[a] == other[b] ? 0 : 1);
            all[i][j] = std::min({all[i - 1][j] + 1, all[i][j - 1] + 1, replaced});
            const bool isSwap = a > 0 && b > 0 && one[a] == other[b - 1] && one[a - 1] == other[b];
            if (isSwap) all[i][j] = std::min(all[i][j], all[i - 2][j - 2] + 1);
        }
    }
    return all.back().back();
}

}  // namespace

QString DidYouMean(const QString& word, const QStringList& known) {
    constexpr qsizetype kLettersOfAMistake = 3;
    constexpr qsizetype kMostMistakes = 3;
    QString nearest;
    qsizetype least = std::clamp<qsizetype>(word.size() / kLettersOfAMistake, 1, kMostMistakes) + 1;
    for (const QString& each : known) {
        const qsizetype distance = DistanceOf(word.toLower(), each.toLower());
        if (distance >= least) continue;
        least = distance;
        nearest = each;
    }
    return nearest.isEmpty() ? QString() : u"，是不是 \"%1\"？"_s.arg(nearest);
}

}  // namespace commtest
