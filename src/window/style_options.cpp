#include "window/style_options.h"

#include <algorithm>

namespace commtest {

namespace {

constexpr int kFocusWidth = 2;
constexpr int kFocusRadius = 4;
constexpr int kTickRadius = 3;
constexpr int kTickSize = 12;
constexpr int kRing = 4;  // of an option that is chosen

int PaddingOf(Look look) { return look == Look::Tight ? kFocusWidth + 1 : kFocusRoom; }

QColor EdgeOf(QStyle::State state, const QColor& other, const Tokens& tokens) {
    if (!Has(state, QStyle::State_Enabled)) return tokens.line;
    return IsHovered(state) || Has(state, QStyle::State_HasFocus) ? tokens.accent : other;
}

}  // namespace

int GapOfOption(Look look) { return look == Look::Tight ? 2 : 6; }

QSize SizeOfOption(Look look, QSize words) {
    return {words.width() + kMarkSize + GapOfOption(look) + 2 * PaddingOf(look),
            std::max(words.height(), kMarkSize) + 2 * kFocusWidth};
}

QRect MarkOfOption(const QRect& option, Look look) {
    return {option.left() + PaddingOf(look), option.top() + (option.height() - kMarkSize) / 2, kMarkSize,
            kMarkSize};
}

QRect WordsOfOption(const QRect& option, Look look) {
    const int left = PaddingOf(look) + kMarkSize + GapOfOption(look);
    return option.adjusted(left, kFocusWidth, -PaddingOf(look), -kFocusWidth);
}

void PaintTick(QPainter& painter, const QRect& mark, QStyle::State state, const Tokens& tokens, bool isDark) {
    const bool isOn = Has(state, QStyle::State_On);
    const QColor edge = EdgeOf(state, isOn ? tokens.accent : tokens.border, tokens);
    PaintBox(painter, mark, isOn ? tokens.accent : tokens.surface, {edge}, kTickRadius);
    if (isOn) PaintSign(painter, mark, Sign::Tick, kTickSize, isDark);
}

void PaintChoice(QPainter& painter, const QRect& mark, QStyle::State state, const Tokens& tokens) {
    const bool isOn = Has(state, QStyle::State_On);
    const QColor edge = EdgeOf(state, isOn ? tokens.accent : tokens.border, tokens);
    PaintBox(painter, mark, isOn ? tokens.onAccent : tokens.surface, {edge, isOn ? kRing : 1}, kMarkSize / 2);
}

void PaintFocusOfOption(QPainter& painter, const QStyleOption& option, const Tokens& tokens) {
    if (!Has(option.state, QStyle::State_HasFocus)) return;
    PaintBox(painter, option.rect, Qt::transparent, {tokens.accent, kFocusWidth}, kFocusRadius);
}

QColor InkOfOption(QStyle::State state, Look look, bool isChoice, const Tokens& tokens) {
    if (!Has(state, QStyle::State_Enabled)) return tokens.disabled;
    const bool isQuiet = look == Look::Quiet && !(isChoice && Has(state, QStyle::State_On));
    return isQuiet ? tokens.text2 : tokens.text;
}

}  // namespace commtest
