#include "window/sent_frames.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "host_qt/words.h"
#include "runtime/hex_text.h"
#include "runtime/runtime_error.h"
#include "window/bindings.h"
#include "window/frame_font.h"
#include "window/list_browsing.h"
#include "window/pieces.h"
#include "window/theme.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kGap = 8;
constexpr int kHintWidth = 246;
constexpr int kHintStays = 6000;  // milliseconds, of an entry that was chosen

// On the ground of fields, with their outline.
class HintBox : public QWidget {
  public:
    explicit HintBox(QWidget* parent) : QWidget(parent, Qt::ToolTip) {}

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(palette().color(QPalette::Base));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

// What lies behind need not be painted for the sake of a frame that goes out.
class FrameField : public QLineEdit {
  public:
    explicit FrameField(QWidget* parent) : QLineEdit(parent) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFont(FrameFont());
        setReadOnly(true);
        setCursor(Qt::ArrowCursor);
        setPlaceholderText(u"显示通讯指令"_s);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter(this).fillRect(event->rect(), QApplication::palette().color(QPalette::Base));
        QLineEdit::paintEvent(event);
    }
};

// A text that is no frame, as one that is composed by hand, has one notation.
QString BothNotations(const Text& frame) {
    const QString code = ToQt(frame).trimmed().toHtmlEscaped();
    try {
        return Words::tr("ASCii码 %1<br>十六进制 %2").arg(ToQt(ReadableOf(frame)).toHtmlEscaped(), code);
    } catch (const RuntimeError&) {
        return code;
    }
}

}  // namespace

SentFrames::SentFrames(Binder& binder, QWidget* parent)
    : QComboBox(parent),
      frames_(binder.Form().SentFrames()),
      hint_(new HintBox(this)),
      words_(new QLabel(hint_)) {
    setEditable(true);
    setLineEdit(new FrameField(this));
    setToolTip(u"显示实时通讯指令内容"_s);
    QLineEdit& text = *lineEdit();
    text.installEventFilter(this);
    connect(&text, &QLineEdit::textChanged, &text, [&text] { text.home(false); });
    Bind(binder, binder.Form().SentFrames(), *this);
    BrowseBeforeChoosing(*this);

    view()->setFont(Theme::MonoFont());
    words_->setFont(Theme::MonoFont());
    words_->setWordWrap(true);
    words_->setFixedWidth(kHintWidth);
    auto* layout = new QVBoxLayout(hint_);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(words_);
    away_.setSingleShot(true);
    away_.setInterval(kHintStays);
    connect(&away_, &QTimer::timeout, this, &SentFrames::HideHint);
    connect(this, &QComboBox::highlighted, this, &SentFrames::ShowHintOfRow);
    connect(this, &QComboBox::activated, this, [this](int row) {
        ShowHint(frames_.At(row), mapToGlobal(QPoint(0, height() + kGap / 2)));
        away_.start();
    });
}

void SentFrames::ShowHintOfRow(int row) {
    if (row < 0 || row >= static_cast<int>(frames_.Items().size()) || !view()->isVisible()) return;
    const QRect place = view()->visualRect(model()->index(row, 0));
    const QPoint corner(view()->viewport()->width() + kGap, place.top());
    ShowHint(frames_.At(row), view()->viewport()->mapToGlobal(corner));
}

void SentFrames::ShowHint(const Text& frame, QPoint globalPlace) {
    away_.stop();
    words_->setText(BothNotations(frame));
    hint_->adjustSize();
    hint_->move(globalPlace);
    hint_->show();
}

QString SentFrames::Hint() const { return hint_->isVisible() ? words_->text() : QString(); }

void SentFrames::HideHint() { hint_->hide(); }

void SentFrames::showPopup() {
    HideHint();
    QComboBox::showPopup();
    ShowHintOfRow(view()->currentIndex().row());
}

void SentFrames::hidePopup() {
    QComboBox::hidePopup();
    HideHint();
}

void SentFrames::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) HideHint();
}

// A press on the frame opens the list, as one beside it does.
bool SentFrames::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = watched == lineEdit() && event->type() == QEvent::MouseButtonPress &&
                         static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton;
    if (!isPress) return QComboBox::eventFilter(watched, event);
    if (count() > 0) showPopup();
    return true;
}

}  // namespace commtest
