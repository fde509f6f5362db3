#include "window/text_spin_box.h"

#include <QLineEdit>
#include <algorithm>

#include "window/theme.h"

namespace commtest {

TextSpinBox::TextSpinBox(QWidget* parent) : QAbstractSpinBox(parent) {
    setFont(Theme::MonoFont());
    connect(lineEdit(), &QLineEdit::textEdited, this, &TextSpinBox::Edited);
}

QString TextSpinBox::Text() const { return lineEdit()->text(); }

void TextSpinBox::SetText(const QString& text) {
    if (text != lineEdit()->text()) lineEdit()->setText(text);
}

void TextSpinBox::SetRange(int lowest, int highest) {
    lowest_ = lowest;
    highest_ = highest;
}

void TextSpinBox::stepBy(int steps) {
    bool isNumber = false;
    const int value = lineEdit()->text().trimmed().toInt(&isNumber);
    const qint64 wanted =
        isNumber ? std::clamp<qint64>(value + qint64{steps} * step_, lowest_, highest_) : lowest_;
    SetText(QString::number(wanted));
    selectAll();
    emit Edited(lineEdit()->text());
}

}  // namespace commtest
