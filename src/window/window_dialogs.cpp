#include "window/window_dialogs.h"

#include <QApplication>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "window/notice_words.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kTitle = u"CommTest"_s;

// The program speaks Chinese, whatever the language of the desktop.
void NameButtons(QMessageBox& box) {
    const auto name = [&box](QMessageBox::StandardButton button, const QString& caption) {
        if (box.button(button) == nullptr) return;
        box.button(button)->setText(caption);
        box.button(button)->setIcon({});
    };
    name(QMessageBox::Ok, u"确定"_s);
    name(QMessageBox::Yes, u"是(&Y)"_s);
    name(QMessageBox::No, u"否(&N)"_s);
}

}  // namespace

QWidget* WindowDialogs::Owner() const {
    QWidget* active = QApplication::activeWindow();
    return active != nullptr ? active : window_;
}

void WindowDialogs::ShowMessage(const Text& text, const Text& detail) {
    QMessageBox box(QMessageBox::Information, kTitle, QString::fromStdU16String(text), QMessageBox::Ok,
                    Owner());
    box.setInformativeText(QString::fromStdU16String(detail));
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    NameButtons(box);
    box.exec();
}

void WindowDialogs::ShowNotice(const Notice& notice) {
    ShowMessage(WordsOn(notice).toStdU16String(), RemedyOf(notice).toStdU16String());
}

void WindowDialogs::ShowError(int, const Text& standardMessage) {
    QMessageBox box(QMessageBox::Warning, kTitle, QString::fromStdU16String(standardMessage), QMessageBox::Ok,
                    Owner());
    NameButtons(box);
    box.exec();
}

bool WindowDialogs::AskYesNo(const Text& text) {
    QMessageBox box(QMessageBox::Question, kTitle, QString::fromStdU16String(text),
                    QMessageBox::Yes | QMessageBox::No, Owner());
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    NameButtons(box);
    return box.exec() == QMessageBox::Yes;
}

Text WindowDialogs::AskText(const Text& title, const Text& prompt, const Text& proposal) {
    QInputDialog box(Owner());
    box.setWindowTitle(QString::fromStdU16String(title));
    box.setLabelText(QString::fromStdU16String(prompt));
    box.setTextValue(QString::fromStdU16String(proposal));
    box.setOkButtonText(u"确定"_s);
    box.setCancelButtonText(u"取消"_s);
    return box.exec() == QDialog::Accepted ? box.textValue().toStdU16String() : Text();
}

}  // namespace commtest
