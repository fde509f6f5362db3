#include "window/empty_state.h"

#include <QEvent>

#include "window/icons.h"
#include "window/pieces.h"

namespace commtest {

namespace {

constexpr int kIconSize = 24;

}  // namespace

EmptyState::EmptyState(const QString& icon, const QString& head, const QString& text, const Theme& theme,
                       QWidget* parent)
    : QWidget(parent), theme_(theme), icon_(icon), sign_(new QLabel(this)), actions_(new QHBoxLayout) {
    setObjectName(QStringLiteral("emptyState"));
    setAttribute(Qt::WA_StyledBackground);
    setAccessibleName(head);
    setAccessibleDescription(text);
    auto* words = MakeHint(text);
    words->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(8);
    layout->addStretch();
    layout->addWidget(sign_, 0, Qt::AlignCenter);
    layout->addWidget(new QLabel(head, this), 0, Qt::AlignCenter);
    layout->addWidget(words);
    layout->addLayout(actions_);
    layout->addStretch();
    actions_->setSpacing(8);
    actions_->addStretch();
    actions_->addStretch();
    connect(&theme, &Theme::Changed, this, &EmptyState::ShowIcon);
    ShowIcon();
}

void EmptyState::ShowIcon() {
    const Tokens& tokens = theme_.Now();
    const qreal ratio = devicePixelRatioF();
    const QIcon icon = TwoToneIcon(icon_, tokens.ink, tokens.accent, tokens.disabled);
    QPixmap picture = icon.pixmap(QSize(kIconSize, kIconSize) * ratio, 1.0);
    picture.setDevicePixelRatio(ratio);
    sign_->setPixmap(picture);
}

void EmptyState::AddAction(const QString& caption, std::function<void()> act) {
    QPushButton* action = MakeLineAction(caption);
    connect(action, &QPushButton::clicked, this, std::move(act));
    actions_->insertWidget(actions_->count() - 1, action);
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
