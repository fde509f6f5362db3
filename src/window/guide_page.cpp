#include "window/guide_page.h"

#include <QRegularExpression>
#include <numeric>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastQuoted = 4;  // characters; what quotes fewer of a text is about many

// The lines of a page, and whether each is of a block of code.
template <typename Take>
void WalkLines(const QString& source, Take&& take) {
    bool isCode = false;
    for (const QString& line : source.split(u'\n')) {
        const bool isFence = line.trimmed().startsWith("```"_L1);
        take(line, isCode || isFence);
        if (isFence) isCode = !isCode;
    }
}

QString AnchorIn(const QString& line) {
    static const QRegularExpression kAnchor(u"^<a name=\"([^\"]+)\"></a>$"_s);
    return kAnchor.match(line.trimmed()).captured(1);
}

// A line of Chinese that goes on in the next one is one without a blank between them.
bool GoesOn(const QString& line, const QString& next) {
    constexpr char16_t kFirstWide = 0x2E80;
    if (line.isEmpty() || next.trimmed().isEmpty() || line.startsWith(u'#')) return false;
    return line.back() >= kFirstWide && next.trimmed().front() >= kFirstWide;
}

// Blanks and ends of lines do not count, nor do the marks of a caption's key.
QString Plain(const QString& text) {
    static const QRegularExpression kUnseen(u"\\s|&|\\(&\\w\\)"_s);
    return QString(text).remove(kUnseen);
}

int LettersOf(const QStringList& pieces) {
    return std::accumulate(pieces.begin(), pieces.end(), 0, [](int letters, const QString& piece) {
        return letters + static_cast<int>(piece.size());
    });
}

// A Chinese page has curly marks for other things.
QRegularExpression QuotationsOf(const QString& source) {
    const bool isChinese = source.contains(u'「');
    return QRegularExpression(isChinese ? u"「([^」]*)」"_s : u"“((?:[^“”]|“[^“”]*”)*)”"_s);
}

// How many letters of what was said are quoted; 0 if something else is.
int LettersQuoted(const QString& quotation, const QString& said) {
    const QStringList pieces = Plain(quotation).split(u'…', Qt::SkipEmptyParts);
    qsizetype place = 0;
    for (const QString& piece : pieces) {
        place = said.indexOf(piece, place);
        if (place < 0) return 0;
        place += piece.size();
    }
    const int letters = LettersOf(pieces);
    return letters < kLeastQuoted ? 0 : letters;
}

}  // namespace

GuidePage GuidePageOf(const QString& source) {
    GuidePage page;
    QStringList lines;
    QStringList pending;
    WalkLines(source, [&](const QString& line, bool isCode) {
        const QString anchor = isCode ? QString() : AnchorIn(line);
        if (!anchor.isEmpty()) {
            pending += anchor;
            return;
        }
        if (!isCode && !lines.isEmpty() && GoesOn(lines.back(), line)) {
            lines.back() += line.trimmed();
            return;
        }
        lines += line;
        if (isCode || !line.startsWith(u'#')) return;
        page.anchors += pending;
        pending.clear();
    });
    // A Chinese font, which may serve both languages, has curly quotation marks that are too wide in English.
    static const QRegularExpression kCurly(u"[“”]"_s);
    page.markdown = lines.join(u'\n').replace(kCurly, u"\""_s);
    return page;
}

QString AnchorAbout(const QString& source, const QString& said) {
    const QRegularExpression quotation = QuotationsOf(source);
    const QString words = Plain(said);
    QString found;
    int most = 0;
    QString anchor;
    QString part;
    const auto judge = [&] {
        for (auto match = quotation.globalMatch(part); match.hasNext();) {
            const int letters = LettersQuoted(match.next().captured(1), words);
            if (letters <= most || anchor.isEmpty()) continue;
            most = letters;
            found = anchor;
        }
        part.clear();
    };
    WalkLines(source, [&](const QString& line, bool isCode) {
        const QString next = isCode ? QString() : AnchorIn(line);
        if (next.isEmpty()) {
            part += line + u'\n';
            return;
        }
        judge();
        anchor = next;
    });
    judge();
    return found;
}

}  // namespace commtest
