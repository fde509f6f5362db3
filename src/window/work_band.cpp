#include "window/work_band.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "host_qt/words.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAll = 1000;  // steps of the bar
constexpr int kTenth = 10;  // percent
constexpr int kGapOfFields = 16;
constexpr int kWidestCaption = 280;

}  // namespace

WorkBand::WorkBand(QWidget* parent)
    : QWidget(parent),
      titleLabel_(new QLabel(this)),
      fieldLine_(new QHBoxLayout),
      cancel_(new QPushButton(Words::tr("取消"), this)),
      bar_(new QProgressBar(this)) {
    setAttribute(Qt::WA_StyledBackground);
    SetLook(*this, Look::TintBand);
    setFixedHeight(kHeight + kBarHeight);
    setFocusProxy(cancel_);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(12, 0, 12, 0);
    line->setSpacing(8);
    fieldLine_->setContentsMargins(kGapOfFields - line->spacing(), 0, 0, 0);
    fieldLine_->setSpacing(6);
    line->addWidget(titleLabel_);
    line->addLayout(fieldLine_);
    line->addStretch();
    line->addWidget(cancel_);
    bar_->setFixedHeight(kBarHeight);
    bar_->setRange(0, kAll);
    bar_->setTextVisible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(line, 1);
    layout->addWidget(bar_);
    connect(cancel_, &QPushButton::clicked, this, &WorkBand::CancelWanted);
    hide();
}

void WorkBand::Begin(const Work& work) {
    setAccessibleName(work.name);
    title_ = work.title;
    titleLabel_->setText(title_);
    cancel_->setVisible(work.canBeCancelled);
    Show(0, {});
    Announce(0);
    show();
}

void WorkBand::Show(double share, const QList<Field>& fields) {
    while (fields_.size() < fields.size()) AddField();
    for (qsizetype index = 0; index < fields_.size(); ++index) {
        const Field field = index < fields.size() ? fields[index] : Field();
        auto [caption, value] = fields_[index];
        caption->setText(caption->fontMetrics().elidedText(field.caption, Qt::ElideMiddle, kWidestCaption));
        value->setText(field.value);
        caption->setVisible(field.isCaptionAlone || !field.value.isEmpty());
        value->setVisible(!field.value.isEmpty());
    }
    const int steps = std::clamp(static_cast<int>(std::lround(share * kAll)), 0, kAll);
    bar_->setValue(steps);
    const int percent = steps * 100 / kAll;
    if (percent / kTenth > announced_ / kTenth) Announce(percent / kTenth * kTenth);
}

void WorkBand::AddField() {
    auto* caption = MakeCaption({});
    caption->setParent(this);
    auto* value = new QLabel(this);
    value->setFont(Theme::MonoFont());
    if (!fields_.isEmpty()) fieldLine_->addSpacing(kGapOfFields - fieldLine_->spacing());
    fieldLine_->addWidget(caption);
    fieldLine_->addWidget(value);
    fields_.emplaceBack(caption, value);
}

void WorkBand::Announce(int percent) {
    announced_ = percent;
    bar_->setAccessibleName(Words::tr("%1，%2%").arg(title_).arg(percent));
    QAccessibleEvent event(bar_, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

void WorkBand::End() { hide(); }

void WorkBand::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && cancel_->isVisible()) {
        emit CancelWanted();
    } else {
        QWidget::keyPressEvent(event);
    }
}

QString TimeLeft(double share, qint64 milliseconds) {
    constexpr double kLeastShare = 0.01;
    constexpr int kMinute = 60;
    if (share < kLeastShare || share > 1) return {};
    const auto seconds =
        static_cast<int>(std::ceil(static_cast<double>(milliseconds) / 1000 * (1 - share) / share));
    return u"%1:%2"_s.arg(seconds / kMinute).arg(seconds % kMinute, 2, 10, '0'_L1);
}

}  // namespace commtest
