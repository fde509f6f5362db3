#pragma once

#include <QString>
#include <QStringList>

namespace commtest {

// What a mistyped word may have meant, for the line that refuses it: "，是不是 "poll"？"; nothing where no
// known word is near.
QString DidYouMean(const QString& word, const QStringList& known);

}  // namespace commtest
