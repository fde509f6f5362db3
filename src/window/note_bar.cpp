#include "window/note_bar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <chrono>
#include <utility>

#include "window/glyphs.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kTimeOfAWord = 6s;
constexpr int kGlyphSize = 16;

}  // namespace

NoteBar::NoteBar(const Theme& theme, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      sign_(new QLabel(this)),
      words_(new QLabel(this)),
      action_(MakeLineAction({})) {
    setAccessibleName(u"提示"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    sign_->setFixedWidth(kGlyphSize);
    words_->setMinimumWidth(0);
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(sign_);
    layout->addWidget(words_, 1);
    layout->addWidget(action_);
    connect(action_, &QPushButton::clicked, this, &NoteBar::TakeOffer);
    connect(&timer_, &QTimer::timeout, this, [this] { take_ ? CountDown() : End(); });
    End();
}

void NoteBar::Say(const QString& text) {
    Show(text, false);
    timer_.start(kTimeOfAWord);
}

void NoteBar::Warn(const QString& text) {
    Show(text, true);
    timer_.stop();
}

void NoteBar::Offer(const QString& text, const QString& action, std::function<void()> take) {
    Show(text, false);
    take_ = std::move(take);
    actionName_ = action;
    secondsLeft_ = kSecondsOfAnOffer + 1;
    action_->show();
    CountDown();
    timer_.start(1s);
}

void NoteBar::TakeOffer() {
    if (!take_) return;
    const auto take = std::exchange(take_, nullptr);
    End();
    take();
}

void NoteBar::WithdrawOffer() {
    if (take_) End();
}

// A word that is said again only stays longer.
void NoteBar::Show(const QString& text, bool isFailure) {
    take_ = nullptr;
    action_->hide();
    sign_->setVisible(isFailure);
    if (isFailure)
        sign_->setPixmap(GlyphPicture(Glyph::Warning, theme_.Now().warn, kGlyphSize, devicePixelRatioF()));
    const bool isNew = std::exchange(text_, text) != text;
    words_->setToolTip(text);
    words_->setAccessibleName(text);
    Elide();
    if (!isNew) return;
    QAccessibleEvent event(words_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void NoteBar::CountDown() {
    if (--secondsLeft_ == 0) {
        End();
        return;
    }
    action_->setText(u"%1 (%2)"_s.arg(actionName_).arg(secondsLeft_));
    action_->setAccessibleName(actionName_);
}

void NoteBar::End() {
    timer_.stop();
    take_ = nullptr;
    text_.clear();
    words_->clear();
    words_->setToolTip({});
    sign_->hide();
    action_->hide();
    emit Ended();
}

void NoteBar::Elide() {
    words_->setText(words_->fontMetrics().elidedText(text_, Qt::ElideRight, words_->width()));
}

void NoteBar::mousePressEvent(QMouseEvent*) {
    if (!take_) End();
}

void NoteBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Elide();
}

}  // namespace commtest
