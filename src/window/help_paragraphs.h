#pragma once

#include <QList>
#include <QString>

namespace commtest {

// A piece of the help text, which is written in lines of a fixed width.
struct HelpParagraph {
    enum class Kind {
        Title,    // a line over "===="
        Heading,  // a line over "----"
        Words,
        Item,  // "1  ...": `mark` is its number
        Row,   // two columns; `mark` is the first one
        Code,  // a command to type
    };

    Kind kind = Kind::Words;
    QString text = {};
    QString mark = {};
    bool isIndented = false;

    friend bool operator==(const HelpParagraph&, const HelpParagraph&) = default;
};

// The text as paragraphs: lines that only end because they are full are joined. Nothing of it is lost,
// whoever has written it.
QList<HelpParagraph> HelpParagraphsOf(const QString& text);

}  // namespace commtest
