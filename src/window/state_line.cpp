#include "window/state_line.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "host_qt/words.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kGlyphSize = 16;
constexpr int kMargin = 12;
constexpr int kBarWidth = 3;
constexpr int kDotSize = 8;

QLabel* MakeWords(QWidget* parent) {
    auto* words = new QLabel(parent);
    words->setFont(Theme::CaptionFont());
    words->setTextFormat(Qt::PlainText);
    return words;
}

}  // namespace

StateLine::StateLine(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      sign_(new QLabel(this)),
      head_(MakeWords(this)),
      text_(MakeWords(this)),
      count_(new CountLabel(theme, Words::tr("第 %1 / %2 条").split(u' '), this)),
      dot_(new QLabel(this)),
      captureCounts_(
          new CountLabel(theme, (Words::tr("采集") + Words::tr(" 新 %1 已有 %2")).split(u' '), this)),
      action_(MakeLineAction({})) {
    setFixedHeight(kHeight);
    setAccessibleName(Words::tr("通讯状态"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMargin, 0, kMargin, 0);
    layout->setSpacing(8);
    sign_->setFixedSize(kGlyphSize, kGlyphSize);
    text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->addWidget(sign_);
    layout->addWidget(head_);
    layout->addWidget(text_, 1);
    layout->addWidget(count_);
    layout->addWidget(dot_);
    layout->addWidget(captureCounts_);
    layout->addWidget(action_);
    SetLook(*dot_, Look::Dot);
    dot_->setFixedSize(kDotSize, kDotSize);
    captureCounts_->setAccessibleName(Words::tr("采集计数"));
    connect(action_, &QPushButton::clicked, this, [this] {
        if (const auto act = shown_.act) act();
    });
    connect(&theme, &Theme::Changed, this, &StateLine::ShowWords);
    ShowWords();
    binder.AtEachLook([this] { Listen(); });
}

void StateLine::AddSource(Rank rank, Source source) {
    const auto behind =
        std::upper_bound(sources_.begin(), sources_.end(), rank,
                         [](Rank one, const RankedSource& other) { return one < other.rank; });
    sources_.insert(behind, {rank, std::move(source)});
    Listen();
}

void StateLine::ShowCounts(std::function<QString()> counts) {
    counts_ = std::move(counts);
    Listen();
}

void StateLine::Listen() {
    FollowMessage();
    FollowCounts();
}

// A capture keeps the line in a low window, too.
void StateLine::FollowCounts() {
    const QString counts = counts_();
    const bool isOn = !counts.isEmpty();
    const bool isShown = isOn && shown_.action.isEmpty();
    dot_->setVisible(isShown);
    captureCounts_->setVisible(isShown);
    if (isOn != std::exchange(isCapturing_, isOn)) emit Changed();
    if (captureCounts_->text() == counts) return;
    captureCounts_->setText(counts);
    captureCounts_->setAccessibleDescription(counts);
}

void StateLine::FollowMessage() {
    for (const RankedSource& ranked : sources_) {
        std::optional<StateMessage> message = ranked.source();
        if (!message) continue;
        saysMore_ = ranked.rank != Rank::Operation;
        Show(std::move(*message));
        return;
    }
    saysMore_ = false;
    Show({});
}

void StateLine::Show(StateMessage message) {
    const bool isSame = shown_.SaysTheSameAs(message);
    const bool isFurther = shown_.count != message.count;
    shown_ = std::move(message);
    if (isSame && !isFurther) return;
    if (isSame) return ShowWords();  // who listens is not told each step
    ShowWords();
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
    emit Changed();
}

void StateLine::ShowWords() {
    const Tokens& tokens = theme_.Now();
    const bool isFailure = shown_.look == StateMessage::Look::Failure;
    const QColor ink = isFailure ? tokens.warn : tokens.accent;
    sign_->setVisible(shown_.glyph.has_value());
    if (shown_.glyph) sign_->setPixmap(GlyphPicture(*shown_.glyph, ink, kGlyphSize, devicePixelRatioF()));
    head_->setVisible(!shown_.head.isEmpty());
    head_->setText(shown_.head);
    ShowAsFailure(*head_, isFailure, QPalette::WindowText);
    text_->setText(text_->fontMetrics().elidedText(shown_.text, Qt::ElideRight, text_->width()));
    text_->setToolTip(shown_.text);
    count_->setVisible(!shown_.count.isEmpty());
    count_->setText(shown_.count);
    action_->setVisible(!shown_.action.isEmpty());
    action_->setText(shown_.action);
    setAccessibleDescription(QString(shown_.head + u' ' + shown_.text).trimmed());
    update();
}

void StateLine::paintEvent(QPaintEvent*) {
    const Tokens& tokens = theme_.Now();
    QPainter painter(this);
    painter.fillRect(rect(), shown_.look == StateMessage::Look::Tinted ? tokens.tint : tokens.window);
    if (shown_.look == StateMessage::Look::Failure) painter.fillRect(0, 0, kBarWidth, height(), tokens.warn);
}

void StateLine::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ShowWords();
}

}  // namespace commtest
