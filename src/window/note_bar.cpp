#include "window/note_bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <chrono>
#include <utility>

#include "host_qt/words.h"
#include "window/pieces.h"

namespace commtest {

using namespace std::chrono_literals;

namespace {

constexpr auto kTimeOfAWord = 6s;
constexpr int kGlyphSize = 16;
constexpr int kEdgeLength = 12;
constexpr int kActionHeight = 18;  // the toolkit leaves no more room in a status bar

}  // namespace

NoteBar::NoteBar(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      edge_(MakeHairline(Qt::Vertical, kEdgeLength)),
      sign_(new QLabel(this)),
      words_(new QLabel(this)),
      action_(MakeLineAction({})),
      seconds_(new QLabel(this)) {
    setAccessibleName(Words::tr("提示"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    sign_->setFixedWidth(kGlyphSize);
    ShowAsCaption(*words_);
    ShowAsCaption(*seconds_);
    action_->setFixedHeight(kActionHeight);
    words_->setMinimumWidth(0);
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(edge_);
    layout->addSpacing(4);
    layout->addWidget(sign_);
    layout->addWidget(words_, 1);
    layout->addWidget(action_);
    layout->addWidget(seconds_);
    layout->addStretch();
    connect(action_, &QPushButton::clicked, this, &NoteBar::Take);
    connect(&timer_, &QTimer::timeout, this, [this] { HasOffer() ? CountDown() : End(); });
    End();
}

void NoteBar::Say(const QString& text) {
    Show(text);
    timer_.start(kTimeOfAWord);
}

void NoteBar::Warn(const QString& text, Glyph sign) {
    Show(text);
    ShowSign(sign, theme_.Now().warn);
    ShowAsFailure(true);
}

void NoteBar::Offer(const QString& text, const QString& action, std::function<void()> take) {
    Show(text);
    ShowAction(action, std::move(take));
    secondsLeft_ = kSecondsOfAnOffer + 1;
    CountDown();
    timer_.start(1s);
}

void NoteBar::Ask(const QString& text, Glyph sign, const QString& action, std::function<void()> take) {
    Show(text);
    ShowSign(sign, theme_.Now().accent);
    ShowAction(action, std::move(take));
}

void NoteBar::TakeOffer() {
    if (HasOffer()) Take();
}

void NoteBar::WithdrawOffer() {
    if (HasOffer()) End();
}

void NoteBar::WithdrawQuestion() {
    if (Asks()) End();
}

void NoteBar::Take() {
    const auto take = std::exchange(take_, nullptr);
    End();
    if (take) take();
}

// A word that is said again only stays longer.
void NoteBar::Show(const QString& text) {
    timer_.stop();
    take_ = nullptr;
    secondsLeft_ = 0;
    action_->hide();
    seconds_->hide();
    sign_->hide();
    ShowAsFailure(false);
    edge_->show();
    const bool isNew = std::exchange(text_, text) != text;
    words_->setToolTip(text);
    words_->setAccessibleName(text);
    FitWords();
    if (!isNew) return;
    QAccessibleEvent event(words_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void NoteBar::ShowSign(Glyph sign, const QColor& colour) {
    sign_->setPixmap(GlyphPicture(sign, colour, kGlyphSize, devicePixelRatioF()));
    sign_->show();
    FitWords();
}

void NoteBar::ShowAction(const QString& action, std::function<void()> take) {
    take_ = std::move(take);
    action_->setText(action);
    action_->show();
    FitWords();
}

void NoteBar::ShowAsFailure(bool isFailure) { commtest::ShowAsFailure(*words_, isFailure, kCaptionRole); }

void NoteBar::CountDown() {
    if (--secondsLeft_ == 0) {
        End();
        return;
    }
    seconds_->setText(Words::tr("%1 秒").arg(secondsLeft_));
    seconds_->show();
}

void NoteBar::End() {
    timer_.stop();
    take_ = nullptr;
    secondsLeft_ = 0;
    text_.clear();
    words_->clear();
    words_->setToolTip({});
    sign_->hide();
    action_->hide();
    seconds_->hide();
    edge_->hide();
    emit Ended();
}

// As wide as they are, or what there is.
void NoteBar::FitWords() {
    words_->setMaximumWidth(words_->fontMetrics().horizontalAdvance(text_) + 1);
    layout()->activate();
    words_->setText(words_->fontMetrics().elidedText(text_, Qt::ElideRight, words_->width()));
}

void NoteBar::mousePressEvent(QMouseEvent*) {
    if (!take_) End();
}

void NoteBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    FitWords();
}

}  // namespace commtest
