#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace commtest {

// A page of the guide, which is written in Markdown; a line <a name="..."></a> names the heading behind it.
struct GuidePage {
    QString markdown;            // without those lines
    QList<QStringList> anchors;  // of each heading, in their order; most have one or none
};

GuidePage GuidePageOf(const QString& source);

// The anchor of the part of a page that is about what the program has said: the part that quotes it, 「…」 in
// Chinese and “…” in English, where an ellipsis stands for anything; of several the one that quotes most.
// Empty if none does.
QString AnchorAbout(const QString& source, const QString& said);

}  // namespace commtest
