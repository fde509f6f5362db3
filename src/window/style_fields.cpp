#include "window/style_fields.h"

#include <QAbstractSpinBox>
#include <QComboBox>

namespace commtest {

namespace {

constexpr int kRadius = 4;
constexpr int kPadding = 9;  // left and right of the text, with the edge
constexpr int kCompactPadding = 5;
constexpr int kCellPadding = 6;
constexpr int kDropWidth = 20;
constexpr int kDropSize = 12;
constexpr int kBesideDrop = 2;
constexpr int kStepsWidth = 20;
constexpr int kStepSize = 10;
constexpr int kBehindSteps = 3;  // with the edge
constexpr int kRoundSteps = 2;

Edge EdgeOf(QStyle::State state, const Tokens& tokens) {
    if (!Has(state, QStyle::State_Enabled)) return {tokens.line};
    return Has(state, QStyle::State_HasFocus) ? Edge{tokens.accent, 2} : Edge{tokens.border};
}

int PaddingOf(Look look) {
    if (look == Look::CellEditor) return kCellPadding;
    return look == Look::Compact ? kCompactPadding : kPadding;
}

void PaintStep(QPainter& painter, const QStyleOptionSpinBox& option, QStyle::SubControl step,
               const Tokens& tokens, bool isDark) {
    const bool isUp = step == QStyle::SC_SpinBoxUp;
    const QRect part = PartOfSpinBox(option, step);
    const QRect button = part.adjusted(0, isUp ? kRoundSteps : 0, -kRoundSteps, isUp ? 0 : -kRoundSteps);
    if (IsHovered(option.state) && option.activeSubControls.testFlag(step))
        painter.fillRect(button, tokens.hover);
    PaintSign(painter, button, isUp ? Sign::Up : Sign::Down, kStepSize, isDark);
}

}  // namespace

bool IsPartOfAField(const QWidget* line) {
    const QWidget* parent = line != nullptr ? line->parentWidget() : nullptr;
    return qobject_cast<const QComboBox*>(parent) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(parent) != nullptr;
}

QSize SizeOfLineEdit(const QWidget* line, QSize contents) {
    if (IsPartOfAField(line)) return contents;
    const Look look = LookOf(line);
    const int height = look == Look::Compact ? kCompactHeight : kFieldHeight;
    return {contents.width() + 2 * PaddingOf(look), height};
}

QSize SizeOfComboBox(QSize contents) {
    return {contents.width() + kDropWidth + kBesideDrop + 2 * kPadding, kFieldHeight};
}

QSize SizeOfSpinBox(QSize contents) {
    return {contents.width() + kStepsWidth + kPadding + kBehindSteps, kFieldHeight};
}

QRect ContentsOfLineEdit(const QStyleOption& option, const QWidget* line) {
    if (IsPartOfAField(line)) return option.rect;
    const Look look = LookOf(line);
    const int edge = look == Look::CellEditor || Has(option.state, QStyle::State_HasFocus) ? 2 : 1;
    return option.rect.adjusted(PaddingOf(look), edge, -PaddingOf(look), -edge);
}

QRect PartOfComboBox(const QStyleOptionComboBox& option, QStyle::SubControl part) {
    const QRect& box = option.rect;
    switch (part) {
        case QStyle::SC_ComboBoxEditField: {
            const int edge = option.editable ? 2 : 1;
            return box.adjusted(kPadding, edge, -kPadding - kDropWidth, -edge);
        }
        case QStyle::SC_ComboBoxArrow:
            return {box.right() - kDropWidth, box.top() + 1, kDropWidth, box.height() - 2};
        default: return box;
    }
}

QRect PartOfSpinBox(const QStyleOptionSpinBox& option, QStyle::SubControl part) {
    const QRect& box = option.rect;
    const int left = box.right() + 1 - kStepsWidth;
    const int half = box.height() / 2;
    switch (part) {
        case QStyle::SC_SpinBoxEditField: return box.adjusted(kPadding, 2, -kBehindSteps - kStepsWidth, -2);
        case QStyle::SC_SpinBoxUp: return {left, box.top(), kStepsWidth, half};
        case QStyle::SC_SpinBoxDown: return {left, box.bottom() + 1 - half, kStepsWidth, half};
        default: return box;
    }
}

void PaintLineEdit(QPainter& painter, const QStyleOption& option, const QWidget* line, const Tokens& tokens) {
    if (IsPartOfAField(line)) return;
    const Look look = LookOf(line);
    if (look == Look::CellEditor) {
        painter.fillRect(option.rect, tokens.surface);
        PaintEdge(painter, option.rect, {tokens.accent, 2});
    } else {
        const QColor ground = look == Look::Given ? tokens.window : tokens.surface;
        PaintBox(painter, option.rect, ground, EdgeOf(option.state, tokens), kRadius);
    }
}

void PaintComboBox(QPainter& painter, const QStyleOptionComboBox& option, Look look, const Tokens& tokens,
                   bool isDark) {
    const Edge edge = look == Look::Refused ? Edge{tokens.warn, 2} : EdgeOf(option.state, tokens);
    PaintBox(painter, option.rect, tokens.surface, edge, kRadius);
    PaintSign(painter, PartOfComboBox(option, QStyle::SC_ComboBoxArrow), Sign::Down, kDropSize, isDark);
}

void PaintSpinBox(QPainter& painter, const QStyleOptionSpinBox& option, const Tokens& tokens, bool isDark) {
    PaintBox(painter, option.rect, tokens.surface, EdgeOf(option.state, tokens), kRadius);
    PaintStep(painter, option, QStyle::SC_SpinBoxUp, tokens, isDark);
    PaintStep(painter, option, QStyle::SC_SpinBoxDown, tokens, isDark);
}

}  // namespace commtest
