#include "window/fact_box.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "host_qt/words.h"
#include "window/look.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kButtonsOfATitle = 120;     // pixels that a desktop takes for them
constexpr int kLongSentence = 120;        // characters; more of them scroll
constexpr int kMostOfASentence = 20'000;  // that are shown
constexpr int kHeightOfALongSentence = 96;

QWidget* MakeLongSentence(const QString& sentence) {
    auto* text = new QPlainTextEdit;
    text->setReadOnly(true);
    text->setPlainText(sentence.size() > kMostOfASentence ? sentence.left(kMostOfASentence) + u"…"_s
                                                          : sentence);
    text->setFixedHeight(kHeightOfALongSentence);
    text->setTabChangesFocus(true);
    return text;
}

QWidget* MakeSentence(const QString& sentence) {
    auto* label = new QLabel(sentence);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

}  // namespace

FactBox::FactBox(const Theme& theme, QWidget* window)
    : QDialog(window),
      theme_(theme),
      sign_(new QLabel(this)),
      words_(new QVBoxLayout),
      facts_(new QGridLayout),
      buttons_(new QHBoxLayout) {
    setWindowTitle(window->windowTitle());
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(std::max(kNarrowest, fontMetrics().horizontalAdvance(windowTitle()) + kButtonsOfATitle));
    facts_->setHorizontalSpacing(16);
    facts_->setVerticalSpacing(4);
    facts_->setColumnStretch(1, 1);
    words_->setSpacing(8);
    words_->addLayout(facts_);
    auto* upper = new QHBoxLayout;
    upper->setSpacing(16);
    upper->addWidget(sign_, 0, Qt::AlignTop);
    upper->addLayout(words_, 1);
    buttons_->setSpacing(8);
    buttons_->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(upper);
    layout->addLayout(buttons_);
}

void FactBox::Say(Glyph sign, const QString& sentence) {
    const QColor ink = sign == Glyph::Warning ? theme_.Now().warn : theme_.Now().accent;
    sign_->setPixmap(GlyphPicture(sign, ink, kSignSize, devicePixelRatioF()));
    said_ = sentence;
    delete sentence_;
    sentence_ = sentence.size() > kLongSentence ? MakeLongSentence(sentence) : MakeSentence(sentence);
    words_->insertWidget(0, sentence_);
    Describe();
}

void FactBox::SetFact(const QString& name, const QString& value) {
    const auto known = std::find_if(named_.begin(), named_.end(),
                                    [&name](const auto& fact) { return fact.first->text() == name; });
    if (known != named_.end()) {
        known->second->setText(value);
    } else {
        auto* head = new QLabel(name, this);
        head->setForegroundRole(kCaptionRole);
        QWidget* text = MakeSentence(value);
        facts_->addWidget(head, static_cast<int>(named_.size()), 0, Qt::AlignTop);
        facts_->addWidget(text, static_cast<int>(named_.size()), 1, Qt::AlignTop);
        named_.emplaceBack(head, static_cast<QLabel*>(text));
    }
    Describe();
}

void FactBox::AddContents(QWidget* contents) { words_->addWidget(contents); }

QPushButton* FactBox::AddWayOut(const QString& caption) {
    auto* button = new QPushButton(caption, this);
    button->setAutoDefault(false);
    buttons_->insertWidget(waysOut_++, button);
    return button;
}

QPushButton* FactBox::AddAnswer(const QString& caption, bool isPrimary) {
    auto* button = new QPushButton(caption, this);
    button->setMinimumWidth(52);
    if (isPrimary) SetLook(*button, Look::Primary);
    buttons_->addWidget(button);
    return button;
}

// The toolkit takes words that wrap for higher than they are.
void FactBox::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    resize(width(), layout()->totalHeightForWidth(width()));
}

void FactBox::Describe() {
    setAccessibleName(said_.left(kLongSentence));
    QStringList parts;
    for (const auto& [name, value] : named_) parts += name->text() + u' ' + value->text();
    setAccessibleDescription(parts.join(Words::tr("；")));
}

}  // namespace commtest
