#include "window/record_view.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTextBlock>

#include "session/records.h"
#include "window/bindings.h"
#include "window/record_stretches.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 8;
constexpr int kClickReach = 4;  // pixels

}  // namespace

RecordView::RecordView(Binder& binder, const Theme& theme, const RecordPane& pane, QWidget* parent)
    : QPlainTextEdit(parent), theme_(theme), pane_(pane), epoch_(pane.Epoch()) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setFont(Theme::MonoFont());
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDocumentMargin(kMargin);
    viewport()->setCursor(Qt::ArrowCursor);
    BindPresence(binder, pane, *this);
    connect(&theme, &Theme::Changed, this, &RecordView::ShowAll);
    binder.Watch(pane, [this] { Follow(); });
}

void RecordView::Follow() {
    const std::size_t count = pane_.Blocks().size();
    if (epoch_ != pane_.Epoch()) {
        ShowAll();
    } else if (shown_ != count) {
        PutOnTop(count - shown_);
    }
    epoch_ = pane_.Epoch();
    shown_ = count;
}

void RecordView::ShowAll() {
    clear();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (const RecordBlock& block : pane_.Blocks()) Insert(cursor, block);
    cursor.endEditBlock();
    moveCursor(QTextCursor::Start);
}

// A view that stands at the top stays there; any other one keeps the line that it begins with.
void RecordView::PutOnTop(std::size_t count) {
    QScrollBar& bar = *verticalScrollBar();
    const bool isAtTop = bar.value() == bar.minimum();
    const QTextBlock first = firstVisibleBlock();
    const int linesIntoFirst = bar.value() - first.firstLineNumber();
    const int number = first.blockNumber();
    const int blocksBefore = blockCount();
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    for (std::size_t index = 0; index < count; ++index) Insert(cursor, pane_.Blocks()[index]);
    cursor.endEditBlock();
    if (isAtTop) return;
    const QTextBlock moved = document()->findBlockByNumber(number + blockCount() - blocksBefore);
    // The insertion may have taken its lines away until it is laid out anew.
    document()->documentLayout()->blockBoundingRect(moved);
    bar.setValue(moved.firstLineNumber() + linesIntoFirst);
}

void RecordView::Insert(QTextCursor& cursor, const RecordBlock& block) const {
    const Tokens& tokens = theme_.Now();
    for (const RecordStretch& stretch : StretchesOf(block)) {
        QTextCharFormat format;
        switch (stretch.kind) {
            case RecordStretch::Kind::Frame: format.setForeground(tokens.text); break;
            case RecordStretch::Kind::Quiet: format.setForeground(tokens.text2); break;
            case RecordStretch::Kind::Failure: format.setForeground(tokens.warn); break;
            case RecordStretch::Kind::Plain: break;
        }
        cursor.insertText(
            QString::fromUtf16(stretch.text.data(), static_cast<qsizetype>(stretch.text.size())), format);
    }
}

void RecordView::DropClickIfDragged(const QMouseEvent& event) {
    if (press_ && (event.pos() - *press_).manhattanLength() > kClickReach) press_.reset();
}

void RecordView::mousePressEvent(QMouseEvent* event) {
    press_.reset();
    if (event->button() == Qt::LeftButton && !textCursor().hasSelection()) press_ = event->pos();
    QPlainTextEdit::mousePressEvent(event);
}

void RecordView::mouseMoveEvent(QMouseEvent* event) {
    DropClickIfDragged(*event);
    QPlainTextEdit::mouseMoveEvent(event);
}

void RecordView::mouseReleaseEvent(QMouseEvent* event) {
    QPlainTextEdit::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton) return;
    DropClickIfDragged(*event);
    const bool isClick = press_ && !textCursor().hasSelection();
    press_.reset();
    if (isClick) emit Clicked();
}

void RecordView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) {
        emit Clicked();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void RecordView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(u"复制"_s, this, &QPlainTextEdit::copy)->setEnabled(textCursor().hasSelection());
    menu->addAction(u"全选"_s, this, &QPlainTextEdit::selectAll)->setEnabled(!document()->isEmpty());
    menu->popup(event->globalPos());
}

RecordView* MakeCommPane(Binder& binder, const Theme& theme, int index, QWidget* parent) {
    MainForm& form = binder.Form();
    auto* view = new RecordView(binder, theme, form.ConCommString[static_cast<std::size_t>(index)], parent);
    view->setAccessibleName(index == 1 ? u"通讯记录"_s : u"数据转换过程"_s);
    // Q67: a click empties the record.
    QObject::connect(view, &RecordView::Clicked, view, [&binder, index] {
        binder.Event([&binder, index] { ConCommString_Click(binder.Form(), index); });
    });
    return view;
}

}  // namespace commtest
