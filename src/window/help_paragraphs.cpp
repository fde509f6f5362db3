#include "window/help_paragraphs.h"

#include <QRegularExpression>
#include <QStringList>
#include <numeric>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

using Kind = HelpParagraph::Kind;

constexpr int kFullLine = 58;  // columns; a shorter line ends where its writer wanted it to
constexpr int kDeepIndent = 4;
constexpr int kShortestRule = 4;

bool IsRule(const QString& line, QChar stroke) {
    return line.size() >= kShortestRule && line.count(stroke) == line.size();
}

int IndentOf(const QString& line) {
    int indent = 0;
    while (indent < line.size() && line[indent] == u' ') ++indent;
    return indent;
}

int ColumnsOf(const QString& line) {
    constexpr char16_t kFirstWide = 0x1100;
    return std::accumulate(line.begin(), line.end(), 0, [](int columns, QChar letter) {
        return columns + (letter.unicode() >= kFirstWide ? 2 : 1);
    });
}

bool EndsASentence(const QString& line) { return u"。：；！？.:;!?"_s.contains(line.back()); }

bool IsLatin(QChar letter) { return letter.unicode() < 0x80 && letter.isLetterOrNumber(); }

QString Joined(const QString& text, const QString& more) {
    const bool needsBlank = IsLatin(text.back()) && IsLatin(more.front());
    return needsBlank ? text + u' ' + more : text + more;
}

HelpParagraph ParagraphOf(const QString& line) {
    static const QRegularExpression kItem(u"^ +(\\d+)  +(\\S.*)$"_s);
    static const QRegularExpression kRow(u"^ +(\\S.*?) {3,}(\\S.*)$"_s);
    static const QRegularExpression kCode(u"^ {4,}[a-z]"_s);
    const bool isIndented = IndentOf(line) >= kDeepIndent;
    if (const auto item = kItem.match(line); item.hasMatch())
        return {Kind::Item, item.captured(2), item.captured(1), isIndented};
    if (const auto row = kRow.match(line); row.hasMatch())
        return {Kind::Row, row.captured(2), row.captured(1), isIndented};
    const Kind kind = kCode.match(line).hasMatch() ? Kind::Code : Kind::Words;
    return {kind, line.trimmed(), {}, isIndented};
}

// Whether a line goes on with the paragraph that `former` belongs to.
bool GoesOn(const HelpParagraph& paragraph, const QString& former, const QString& line) {
    if (paragraph.kind == Kind::Item && IndentOf(line) > kDeepIndent) return true;
    if (paragraph.kind != Kind::Words && paragraph.kind != Kind::Item) return false;
    const bool isFull = ColumnsOf(former) >= kFullLine && !EndsASentence(former);
    return isFull && ParagraphOf(line).kind == Kind::Words;
}

}  // namespace

QList<HelpParagraph> HelpParagraphsOf(const QString& text) {
    QList<HelpParagraph> paragraphs;
    QStringList lines = text.split(u'\n');
    for (QString& line : lines) line = line.remove(u'\r');
    QString former;  // the line before, of the same paragraph; empty behind the end of one
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const QString& line = lines[index];
        const QString next = lines.value(index + 1);
        const bool isTitle = IsRule(next, u'=');
        if (line.trimmed().isEmpty()) {
            former.clear();
        } else if (isTitle || IsRule(next, u'-')) {
            paragraphs += {isTitle ? Kind::Title : Kind::Heading, line.simplified()};
            former.clear();
            ++index;
        } else if (!former.isEmpty() && GoesOn(paragraphs.back(), former, line)) {
            paragraphs.back().text = Joined(paragraphs.back().text, line.trimmed());
            former = line;
        } else {
            paragraphs += ParagraphOf(line);
            former = line;
        }
    }
    return paragraphs;
}

}  // namespace commtest
