#include "window/pieces.h"

#include <QVBoxLayout>

namespace commtest {

QFrame* MakeHairline(Qt::Orientation orientation, int length) {
    auto* line = new QFrame;
    line->setProperty("hairline", true);
    const bool isVertical = orientation == Qt::Vertical;
    if (isVertical) {
        line->setFixedWidth(1);
    } else {
        line->setFixedHeight(1);
    }
    if (length > 0 && isVertical) line->setFixedHeight(length);
    if (length > 0 && !isVertical) line->setFixedWidth(length);
    return line;
}

QLabel* MakeCaption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    label->setProperty("caption", true);
    if (buddy != nullptr) {
        label->setBuddy(buddy);
        buddy->setAccessibleName(text);
    }
    return label;
}

QWidget* MakeCaptioned(const QString& caption, QWidget* field) {
    auto* piece = new QWidget;
    auto* layout = new QVBoxLayout(piece);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeCaption(caption, field));
    layout->addWidget(field);
    return piece;
}

}  // namespace commtest
