#include "window/record_view.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOptionSlider>
#include <QTextBlock>
#include <algorithm>
#include <cmath>

#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/frame_font.h"
#include "window/record_stretches.h"

namespace commtest {

namespace {

constexpr int kMargin = 8;
constexpr int kClickReach = 4;                         // pixels
constexpr int kIsOfAStop = QTextFormat::UserProperty;  // of the characters of its block

bool IsOfAStop(const QTextBlock& line) {
    const QTextBlock::iterator first = line.begin();
    return !first.atEnd() && first.fragment().charFormat().boolProperty(kIsOfAStop);
}

QRect SliderOf(const QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.subControls = QStyle::SC_All;
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
}

// The bar of a long record looks the same behind a block more: it is painted when its slider has moved.
class SliderWatch {
  public:
    explicit SliderWatch(QScrollBar& bar) : bar_(bar), wasShown_(bar.isVisible()), former_(SliderOf(bar)) {
        bar_.setAttribute(Qt::WA_UpdatesDisabled);
    }
    ~SliderWatch() {
        bar_.setAttribute(Qt::WA_UpdatesDisabled, false);
        if (!wasShown_ || SliderOf(bar_) != former_) bar_.update();
    }
    SliderWatch(const SliderWatch&) = delete;
    SliderWatch& operator=(const SliderWatch&) = delete;

  private:
    QScrollBar& bar_;
    bool wasShown_;
    QRect former_;
};

int LinesOf(const RecordBlock& block) {
    return static_cast<int>(std::count(block.text.begin(), block.text.end(), u'\n'));
}

}  // namespace

RecordView::RecordView(Binder& binder, const Theme& theme, const RecordPane& pane, QWidget* parent)
    : QPlainTextEdit(parent), theme_(theme), pane_(pane), epoch_(pane.Epoch()) {
    setReadOnly(true);
    setUndoRedoEnabled(false);
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setFont(FrameFont());
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document()->setDocumentMargin(kMargin);
    viewport()->setCursor(Qt::ArrowCursor);
    // What lies behind need not be painted for the sake of a line.
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
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
    const SliderWatch slider(bar);
    InsertOnTop(count);
    emit document()->documentLayout()->documentSizeChanged(document()->documentLayout()->documentSize());
    if (isAtTop) return PushDown(blockCount() - blocksBefore);
    viewport()->update();
    const QTextBlock moved = document()->findBlockByNumber(number + blockCount() - blocksBefore);
    // The insertion may have taken its lines away until it is laid out anew.
    document()->documentLayout()->blockBoundingRect(moved);
    bar.setValue(moved.firstLineNumber() + linesIntoFirst);
}

void RecordView::InsertOnTop(std::size_t count) {
    // Told of the change, the view would paint all of its lines anew.
    const QSignalBlocker untold(document()->documentLayout());
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    // With its end in front of it already, the line that was the first stays laid out.
    const RecordBlock& last = pane_.Blocks()[count - 1];
    const bool endsItsLine = last.text.ends_with(kLineEnd);
    if (endsItsLine) cursor.insertBlock();
    cursor.setPosition(0);
    for (std::size_t index = 0; index + 1 < count; ++index) Insert(cursor, pane_.Blocks()[index]);
    Insert(cursor, last, endsItsLine ? kLineEnd.size() : 0);
    cursor.endEditBlock();
}

// The lines below travel as they are; only the new ones in front of them are painted.
void RecordView::PushDown(int newLines) {
    const QRect room = viewport()->rect();
    double height = 0;
    QTextBlock line = document()->begin();
    for (int number = 0; number < newLines && height < room.height(); ++number, line = line.next()) {
        // Its glyphs are kept until they are painted for the first time.
        line.layout()->setCacheEnabled(true);
        height += blockBoundingRect(line).height();
        line.layout()->setCacheEnabled(false);
    }
    const int distance = static_cast<int>(std::ceil(height));
    viewport()->scroll(0, distance, room);
    viewport()->update(0, 0, room.width(), distance + kMargin);
}

void RecordView::Insert(QTextCursor& cursor, const RecordBlock& block, std::size_t leftOut) const {
    const Tokens& tokens = theme_.Now();
    const bool isOfAStop = block.outcome != nullptr && block.outcome->verdict.stopsSession;
    std::vector<RecordStretch> stretches = StretchesOf(block);
    for (auto last = stretches.rbegin(); leftOut > 0 && last != stretches.rend(); ++last) {
        const std::size_t cut = std::min(leftOut, last->text.size());
        last->text.remove_suffix(cut);
        leftOut -= cut;
    }
    for (const RecordStretch& stretch : stretches) {
        QTextCharFormat format;
        if (isOfAStop) format.setProperty(kIsOfAStop, true);
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

bool RecordView::Holds(const Outcome& outcome) const {
    return std::any_of(pane_.Blocks().begin(), pane_.Blocks().end(),
                       [&](const RecordBlock& block) { return block.outcome.get() == &outcome; });
}

void RecordView::GoTo(const Outcome& outcome) {
    int line = 0;
    for (const RecordBlock& block : pane_.Blocks()) {
        if (block.outcome.get() == &outcome) break;
        line += LinesOf(block);
    }
    const QTextBlock wanted = document()->findBlockByNumber(line);
    if (!wanted.isValid()) return;
    setTextCursor(QTextCursor(wanted));
    document()->documentLayout()->blockBoundingRect(wanted);
    verticalScrollBar()->setValue(wanted.firstLineNumber());
    setFocus();
}

void RecordView::paintEvent(QPaintEvent* event) {
    QPainter(viewport()).fillRect(event->rect(), theme_.Now().surface);
    QPlainTextEdit::paintEvent(event);
    QPainter painter(viewport());
    for (QTextBlock line = firstVisibleBlock(); line.isValid(); line = line.next()) {
        const QRectF place = blockBoundingGeometry(line).translated(contentOffset());
        if (place.top() > event->rect().bottom()) break;
        if (IsOfAStop(line))
            painter.fillRect(QRectF(0, place.top(), kBarWidth, place.height()), theme_.Now().warn);
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
    menu->addAction(Words::tr("复制"), this, &QPlainTextEdit::copy)->setEnabled(textCursor().hasSelection());
    menu->addAction(Words::tr("全选"), this, &QPlainTextEdit::selectAll)->setEnabled(!document()->isEmpty());
    menu->popup(event->globalPos());
}

RecordView* MakeCommPane(Binder& binder, const Theme& theme, int index, QWidget* parent) {
    MainForm& form = binder.Form();
    auto* view = new RecordView(binder, theme, form.ConCommString[static_cast<std::size_t>(index)], parent);
    view->setAccessibleName(index == 1 ? Words::tr("通讯记录") : Words::tr("数据转换过程"));
    return view;
}

}  // namespace commtest
