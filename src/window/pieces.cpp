#include "window/pieces.h"

#include <QVBoxLayout>
#include <algorithm>

#include "window/look.h"
#include "window/theme.h"

namespace commtest {

namespace {

constexpr int kTitleHeight = 16;
constexpr int kCaptionHeight = 15;

// The lines of some fonts are higher, mostly above their letters: these are moved up a little.
void LayInLine(QLabel& label, int height, const QFont& font) {
    label.setFixedHeight(height);
    const int excess = std::max(0, QFontMetrics(font).height() - height);
    label.setContentsMargins(0, 0, 0, (excess + 1) / 2);
}

}  // namespace

void ShowAsCaption(QLabel& label) {
    label.setFont(Theme::CaptionFont());
    label.setForegroundRole(kCaptionRole);
}

void ShowAsFailure(QLabel& label, bool isFailure, QPalette::ColorRole otherwise) {
    label.setForegroundRole(isFailure ? kFailureRole : otherwise);
}

QFrame* MakeHairline(Qt::Orientation orientation, int length) {
    auto* line = new QFrame;
    line->setAutoFillBackground(true);
    line->setBackgroundRole(kLineRole);
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

QLabel* MakeTitle(const QString& text) {
    auto* title = new QLabel(text);
    LayInLine(*title, kTitleHeight, Theme::UiFont());
    return title;
}

QLabel* MakeCaption(const QString& text, QWidget* buddy) {
    auto* label = new QLabel(text);
    ShowAsCaption(*label);
    LayInLine(*label, kCaptionHeight, Theme::CaptionFont());
    if (buddy != nullptr) {
        label->setBuddy(buddy);
        buddy->setAccessibleName(text);
    }
    return label;
}

QLabel* MakeHint(const QString& text) {
    auto* hint = new QLabel(text);
    ShowAsCaption(*hint);
    hint->setWordWrap(true);
    return hint;
}

QPushButton* MakeLineAction(const QString& text) {
    auto* action = new QPushButton(text);
    SetLook(*action, Look::LineAction);
    action->setFont(Theme::CaptionFont());
    action->setCursor(Qt::PointingHandCursor);
    return action;
}

QHBoxLayout* MakeMarkAligned(QWidget* widget) {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(kFocusRoom, 0, 0, 0);
    line->addWidget(widget);
    return line;
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
