#include "window/empty_state.h"

#include <QEvent>
#include <QPushButton>

#include "window/icons.h"
#include "window/pieces.h"

namespace commtest {

namespace {

constexpr int kIconSize = 24;

}  // namespace

EmptyState::EmptyState(const QString& icon, const EmptyWords& words, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      icon_(icon),
      sign_(new QLabel),
      head_(new QLabel),
      text_(MakeHint({})),
      actions_(new QHBoxLayout) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setFont(Theme::UiFont());  // in a pane of frames, too
    text_->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(8);
    layout->addStretch();
    layout->addWidget(sign_, 0, Qt::AlignCenter);
    layout->addWidget(head_, 0, Qt::AlignCenter);
    layout->addWidget(text_);
    layout->addLayout(actions_);
    layout->addStretch();
    actions_->setSpacing(8);
    actions_->addStretch();
    actions_->addStretch();
    sign_->setVisible(!icon.isEmpty());
    connect(&theme, &Theme::Changed, this, &EmptyState::ShowIcon);
    ShowIcon();
    Say(words);
}

void EmptyState::ShowIcon() {
    if (icon_.isEmpty()) return;
    const Tokens& tokens = theme_.Now();
    const qreal ratio = devicePixelRatioF();
    const QIcon icon = TwoToneIcon(icon_, tokens.ink, tokens.accent, tokens.disabled);
    QPixmap picture = icon.pixmap(QSize(kIconSize, kIconSize) * ratio, 1.0);
    picture.setDevicePixelRatio(ratio);
    sign_->setPixmap(picture);
}

void EmptyState::Say(const EmptyWords& words) {
    setAccessibleName(words.head);
    setAccessibleDescription(words.text);
    head_->setText(words.head);
    text_->setText(words.text);
    ShowActions(words.actions);
}

// The press of a former button may be what changes the words.
void EmptyState::ShowActions(const std::vector<EmptyWords::Action>& actions) {
    for (auto* former : findChildren<QPushButton*>(Qt::FindDirectChildrenOnly)) {
        actions_->removeWidget(former);
        former->hide();
        former->deleteLater();
    }
    for (const EmptyWords::Action& action : actions) {
        QPushButton* button = MakeLineAction(action.caption);
        connect(button, &QPushButton::clicked, this, action.act);
        actions_->insertWidget(actions_->count() - 1, button);
        button->show();
    }
}

void EmptyState::CoverWhile(Binder& binder, std::function<bool()> isEmpty) {
    hide();
    parentWidget()->installEventFilter(this);
    setGeometry(parentWidget()->rect());
    binder.AtEachLook([this, isEmpty = std::move(isEmpty)] {
        const bool covers = isEmpty();
        if (isHidden() == covers) setVisible(covers);
    });
}

bool EmptyState::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parentWidget() && event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

}  // namespace commtest
