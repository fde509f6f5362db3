#include "window/window_dialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "host_qt/words.h"
#include "session/main_form.h"
#include "window/error_words.h"
#include "window/notice_words.h"
#include "window/pieces.h"
#include "window/theme.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"CommTest"_s;
const QString kCaptureQuestion = u"数据说明"_s;  // the title of the question for the note of a capture
constexpr int kButtonsOfATitle = 120;            // pixels that a desktop takes for them

// The program speaks Chinese, whatever the language of the desktop.
void NameButtons(QMessageBox& box) {
    const auto name = [&box](QMessageBox::StandardButton button, const QString& caption) {
        if (box.button(button) == nullptr) return;
        box.button(button)->setText(caption);
        box.button(button)->setIcon({});
    };
    name(QMessageBox::Ok, Words::tr("确定"));
    name(QMessageBox::Yes, Words::tr("是(&Y)"));
    name(QMessageBox::No, Words::tr("否(&N)"));
}

int WidthFor(const QWidget& box) {
    const int title = box.fontMetrics().horizontalAdvance(box.windowTitle()) + kButtonsOfATitle;
    return std::max(WindowDialogs::kNarrowest, title);
}

// Boxes size themselves by what is in them.
void Widen(QMessageBox& box) {
    auto& layout = static_cast<QGridLayout&>(*box.layout());
    layout.addItem(new QSpacerItem(WidthFor(box), 0), layout.rowCount(), 0, 1, layout.columnCount());
}

Glyph SignOf(const Notice& notice) {
    switch (notice.kind) {
        case Notice::Kind::NoCatalogue:
        case Notice::Kind::PortLost:
        case Notice::Kind::NoUpdater: return Glyph::Warning;
        default: return Glyph::Information;
    }
}

}  // namespace

QWidget* WindowDialogs::Owner() const {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active : window_;
}

int WindowDialogs::Run(QMessageBox& box, Glyph sign) const {
    const Tokens& tokens = theme_ != nullptr ? theme_->Now() : kLightTokens;
    const QColor ink = sign == Glyph::Warning ? tokens.warn : tokens.accent;
    box.setIconPixmap(GlyphPicture(sign, ink, kSignSize, box.devicePixelRatioF()));
    NameButtons(box);
    Widen(box);
    return box.exec();
}

void WindowDialogs::Tell(Glyph sign, const QString& text, const QString& detail) const {
    QMessageBox box(QMessageBox::NoIcon, kTitle, text, QMessageBox::Ok, Owner());
    box.setInformativeText(detail);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    Run(box, sign);
}

void WindowDialogs::ShowMessage(const Text& text, const Text& detail) {
    Tell(Glyph::Warning, ToQt(text), ToQt(detail));
}

void WindowDialogs::ShowAdvice(const Text& text) { Tell(Glyph::Information, ToQt(text), {}); }

void WindowDialogs::ShowNotice(const Notice& notice) {
    Tell(SignOf(notice), WordsOn(notice), RemedyOf(notice));
}

QString WindowDialogs::ReasonOf(int error) const {
    if (!lastQuestion_.isEmpty() && lastAnswer_.isEmpty()) return WordsOnCancelled(lastQuestion_);
    QString fault;
    if (!lastQuestion_.isEmpty()) fault = FaultyAnswer(error, lastQuestion_, lastAnswer_);
    if (fault.isEmpty() && form_ != nullptr) fault = FaultyField(error, *form_);
    const QString remedy = RemedyOfError(error, !fault.isEmpty());
    return fault.isEmpty() ? remedy : fault + Words::tr("。") + remedy;
}

void WindowDialogs::ShowError(int number, const Text& standardMessage) {
    const QString reason = ReasonOf(number);
    lastQuestion_.clear();
    Tell(Glyph::Warning, ToQt(standardMessage), reason);
}

bool WindowDialogs::AskYesNo(const Text& text) {
    QMessageBox box(QMessageBox::NoIcon, kTitle, ToQt(text), QMessageBox::Yes | QMessageBox::No, Owner());
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return Run(box, Glyph::Unknown) == QMessageBox::Yes;
}

// What the answer is for, where the question does not say it.
QString WindowDialogs::DetailOf(const QString& question) const {
    if (form_ == nullptr || question != kCaptureQuestion) return {};
    return Words::tr("仪表：%1，%2")
        .arg(ToQt(form_->InstrumentName()), ToQt(form_->ConCommTypeList.Value()).trimmed());
}

Text WindowDialogs::AskText(const Text& title, const Text& prompt, const Text& proposal) {
    QInputDialog box(Owner());
    box.setWindowTitle(ToQt(title));
    box.setLabelText(ToQt(prompt));
    box.setTextValue(ToQt(proposal));
    box.setOkButtonText(Words::tr("确定"));
    box.setCancelButtonText(Words::tr("取消"));
    for (QAbstractButton* button : box.findChild<QDialogButtonBox*>()->buttons()) button->setIcon({});
    auto* answer = box.findChild<QLineEdit*>();
    answer->setMinimumWidth(WidthFor(box));
    if (const QString detail = DetailOf(ToQt(title)); !detail.isEmpty()) {
        constexpr int kUnderThePrompt = 1;
        static_cast<QVBoxLayout*>(box.layout())->insertWidget(kUnderThePrompt, MakeHint(detail));
        answer->setAccessibleDescription(detail);
    }
    lastAnswer_ = box.exec() == QDialog::Accepted ? box.textValue() : QString();
    lastQuestion_ = ToQt(title);
    return lastAnswer_.toStdU16String();
}

}  // namespace commtest
