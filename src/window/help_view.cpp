#include "window/help_view.h"

#include <QFile>
#include <QTextBlock>
#include <QTextCursor>

#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/window_face.h"

namespace commtest {

namespace {

using Kind = HelpParagraph::Kind;

constexpr int kMargin = 16;
constexpr int kIndent = 16;
constexpr int kNumberRoom = 24;
constexpr int kColumnRoom = 136;  // of the first of two columns
constexpr int kTitleSize = 18;
constexpr int kHeadingSize = 15;

// Where the text of a paragraph begins behind its mark.
int RoomOfMark(Kind kind) { return kind == Kind::Row ? kColumnRoom : kind == Kind::Item ? kNumberRoom : 0; }

QTextBlockFormat BlockOf(const HelpParagraph& paragraph) {
    QTextBlockFormat format;
    const bool isHead = paragraph.kind == Kind::Title || paragraph.kind == Kind::Heading;
    format.setTopMargin(paragraph.kind == Kind::Heading ? 16 : 0);
    format.setBottomMargin(isHead ? 8 : 4);
    if (paragraph.kind == Kind::Heading) format.setHeadingLevel(2);
    if (paragraph.kind == Kind::Title) format.setHeadingLevel(1);
    const int room = RoomOfMark(paragraph.kind);
    format.setLeftMargin((paragraph.isIndented ? kIndent : 0) + room);
    if (room > 0) {
        format.setTextIndent(-room);
        format.setTabPositions({QTextOption::Tab(room, QTextOption::LeftTab)});
    }
    return format;
}

QTextCharFormat LettersOf(Kind kind, const Tokens& tokens) {
    QFont font = kind == Kind::Code ? Theme::MonoFont() : Theme::UiFont();
    if (kind == Kind::Title) font.setPixelSize(kTitleSize);
    if (kind == Kind::Heading) font.setPixelSize(kHeadingSize);
    QTextCharFormat format;
    format.setFont(font);
    format.setForeground(tokens.text);
    return format;
}

QTextCharFormat LettersOfMark(const Tokens& tokens) {
    QTextCharFormat format;
    format.setFont(Theme::MonoFont());
    format.setForeground(tokens.text2);
    return format;
}

}  // namespace

HelpView::HelpView(Binder& binder, const Theme& theme, const RecordPane& help, QWidget* parent)
    : QTextEdit(parent), theme_(theme), help_(help), ofTheFace_(FaceOf(binder.Form()).help.toString()) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    document()->setDocumentMargin(kMargin);
    setAccessibleName(Words::tr("使用说明"));
    BindPresence(binder, help, *this);
    connect(&theme, &Theme::Changed, this, &HelpView::ShowText);
    binder.Watch(help, [this] { ShowText(); });
}

QString HelpView::Text() const {
    if (ofTheFace_.isEmpty()) return QString::fromStdU16String(help_.WholeText());
    QFile file(ofTheFace_);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void HelpView::ShowText() {
    clear();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (const HelpParagraph& paragraph : HelpParagraphsOf(Text())) Add(cursor, paragraph);
    cursor.endEditBlock();
    moveCursor(QTextCursor::Start);
}

void HelpView::Add(QTextCursor& cursor, const HelpParagraph& paragraph) const {
    const Tokens& tokens = theme_.Now();
    if (document()->isEmpty()) {
        cursor.setBlockFormat(BlockOf(paragraph));
    } else {
        cursor.insertBlock(BlockOf(paragraph));
    }
    if (!paragraph.mark.isEmpty()) cursor.insertText(paragraph.mark + u'\t', LettersOfMark(tokens));
    cursor.insertText(paragraph.text, LettersOf(paragraph.kind, tokens));
}

}  // namespace commtest
