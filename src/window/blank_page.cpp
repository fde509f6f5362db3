#include "window/blank_page.h"

#include <QVBoxLayout>

#include "window/icons.h"
#include "window/pieces.h"

namespace commtest {

namespace {

constexpr int kIconSize = 24;

}  // namespace

BlankPage::BlankPage(const Theme& theme, const QString& icon, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      icon_(icon),
      picture_(new QLabel),
      head_(new QLabel),
      text_(MakeHint({})),
      action_(MakeLineAction({})) {
    setAttribute(Qt::WA_StyledBackground);
    text_->setAlignment(Qt::AlignCenter);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(8);
    layout->addStretch();
    for (QWidget* piece : std::initializer_list<QWidget*>{picture_, head_, text_, action_})
        layout->addWidget(piece, 0, Qt::AlignHCenter);
    layout->addStretch();
    connect(action_, &QPushButton::clicked, this, [this] {
        if (const auto act = act_) act();
    });
    connect(&theme, &Theme::Changed, this, &BlankPage::ShowIcon);
    ShowIcon();
}

void BlankPage::Say(const PageWords& words) {
    setAccessibleName(words.head);
    setAccessibleDescription(words.text);
    head_->setText(words.head);
    text_->setText(words.text);
    action_->setText(words.action);
    action_->setVisible(!words.action.isEmpty());
    act_ = words.act;
}

void BlankPage::ShowIcon() {
    const Tokens& tokens = theme_.Now();
    const QIcon icon = TwoToneIcon(icon_, tokens.ink, tokens.accent, tokens.disabled);
    picture_->setPixmap(icon.pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
}

}  // namespace commtest
