#include "window/style_buttons.h"

#include <QInputDialog>
#include <QMessageBox>
#include <algorithm>

namespace commtest {

namespace {

constexpr int kRadius = 4;
constexpr int kToolBarRadius = 6;
constexpr int kHeight = 28;
constexpr int kLineActionHeight = 24;
constexpr int kToolBarHeight = 32;
constexpr int kPadding = 15;  // left and right of the words, with the edge
constexpr int kLineActionPadding = 8;
constexpr int kNarrowestWords = 60;  // in a box that the toolkit lays out
constexpr int kFlatPadding = 4;      // on all sides
constexpr int kToolBarPadding = 7;
constexpr int kPrimaryPadding = 19;
constexpr int kDropPadding = 21;  // right of what has a menu
constexpr int kDropSize = 12;
constexpr int kBehindDrop = 5;
constexpr int kRoomOfTools = 3;  // beside the icon and the words

struct Colours {
    QColor ground;
    Edge edge;
    QColor ink;
};

bool IsPrimary(Look look) { return look == Look::ToolBarPrimary || look == Look::ToolBarTinted; }

bool IsInABox(const QWidget* button) {
    const QWidget* window = button != nullptr ? button->window() : nullptr;
    return qobject_cast<const QMessageBox*>(window) != nullptr ||
           qobject_cast<const QInputDialog*>(window) != nullptr;
}

bool IsDefaultOfAMessage(const QStyleOptionButton& option, const QWidget* button) {
    return option.features.testFlag(QStyleOptionButton::DefaultButton) && button != nullptr &&
           qobject_cast<const QMessageBox*>(button->window()) != nullptr;
}

Colours Primary(QStyle::State state, const Tokens& tokens) {
    if (!Has(state, QStyle::State_Enabled)) return {tokens.line, {tokens.line}, tokens.disabled};
    const QColor ground = IsHovered(state) ? tokens.accentHover : tokens.accent;
    const bool hasFocus = Has(state, QStyle::State_HasFocus);
    return {ground, hasFocus ? Edge{tokens.text, 2} : Edge{tokens.accent}, tokens.onAccent};
}

Edge FocusOr(QStyle::State state, const QColor& other, const Tokens& tokens) {
    return Has(state, QStyle::State_HasFocus) ? Edge{tokens.accent, 2} : Edge{other};
}

Colours Plain(QStyle::State state, const Tokens& tokens) {
    if (!Has(state, QStyle::State_Enabled)) return {tokens.surface, {tokens.line}, tokens.disabled};
    const bool isPressed = Has(state, QStyle::State_Sunken);
    const QColor ground = isPressed ? tokens.tint : IsHovered(state) ? tokens.hover : tokens.surface;
    return {ground, FocusOr(state, isPressed ? tokens.accent : tokens.border, tokens), tokens.text};
}

Colours LineAction(QStyle::State state, const Tokens& tokens) {
    const QColor ink = Has(state, QStyle::State_Enabled) ? tokens.accent : tokens.disabled;
    return {IsHovered(state) ? tokens.hover : Qt::transparent, FocusOr(state, Qt::transparent, tokens), ink};
}

Colours ToolOf(QStyle::State state, Look look, const Tokens& tokens) {
    const QColor ink = Has(state, QStyle::State_Enabled) ? tokens.text : tokens.disabled;
    const QColor ground = IsHovered(state) ? tokens.hover : Qt::transparent;
    const Edge edge = FocusOr(state, Qt::transparent, tokens);
    switch (look) {
        case Look::FlatChosen: return {tokens.tint, edge, ink};
        case Look::ToolBarPrimary: return Primary(state, tokens);
        case Look::ToolBarTinted:
            return {IsHovered(state) ? tokens.hover : tokens.tint, FocusOr(state, tokens.accent, tokens),
                    tokens.accent};
        case Look::ToolBar:
            if (Has(state, QStyle::State_Sunken) || Has(state, QStyle::State_On))
                return {tokens.tint, edge, tokens.accent};
            break;
        default: break;
    }
    return {ground, edge, ink};
}

bool IsFlat(Look look) { return look == Look::Flat || look == Look::FlatChosen; }

QMargins PaddingOf(const QStyleOptionToolButton& option, Look look) {
    if (IsFlat(look)) return {kFlatPadding, kFlatPadding, kFlatPadding, kFlatPadding};
    if (IsPrimary(look)) return {kPrimaryPadding, 1, kPrimaryPadding, 1};
    const bool hasMenu = option.features.testFlag(QStyleOptionToolButton::HasMenu);
    return {kToolBarPadding, 1, hasMenu ? kDropPadding : kToolBarPadding, 1};
}

}  // namespace

bool IsToolOfOurs(Look look) { return IsFlat(look) || look == Look::ToolBar || IsPrimary(look); }

QSize SizeOfPushButton(const QWidget* button, QSize words) {
    if (LookOf(button) == Look::LineAction)
        return {words.width() + 2 * kLineActionPadding, kLineActionHeight};
    const int width = IsInABox(button) ? std::max(words.width(), kNarrowestWords) : words.width();
    return {width + 2 * kPadding, kHeight};
}

QSize SizeOfToolButton(const QStyleOptionToolButton& option, Look look, QSize contents) {
    const QMargins padding = PaddingOf(option, look);
    const QSize size = contents.grownBy(padding) + QSize(kRoomOfTools, kRoomOfTools);
    return IsFlat(look) ? size : QSize(size.width(), kToolBarHeight);
}

QRect ContentsOfPushButton(const QRect& button, Look look) {
    const int padding = look == Look::LineAction ? kLineActionPadding : kPadding;
    return button.adjusted(padding, 1, -padding, -1);
}

QRect ContentsOfToolButton(const QStyleOptionToolButton& option, Look look) {
    return option.rect.marginsRemoved(PaddingOf(option, look));
}

QColor PaintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* button,
                       const Tokens& tokens) {
    const Look look = LookOf(button);
    const bool isPrimary = look == Look::Primary || IsDefaultOfAMessage(option, button);
    // The default of a message is the one that has the focus.
    const QStyle::State state = look == Look::Primary ? option.state : option.state & ~QStyle::State_HasFocus;
    const Colours colours = isPrimary                  ? Primary(state, tokens)
                            : look == Look::LineAction ? LineAction(option.state, tokens)
                                                       : Plain(option.state, tokens);
    PaintBox(painter, option.rect, colours.ground, colours.edge, kRadius);
    return colours.ink;
}

QColor PaintToolButton(QPainter& painter, const QStyleOptionToolButton& option, Look look,
                       const Tokens& tokens, bool isDark) {
    const Colours colours = ToolOf(option.state, look, tokens);
    PaintBox(painter, option.rect, colours.ground, colours.edge, IsFlat(look) ? kRadius : kToolBarRadius);
    if (option.features.testFlag(QStyleOptionToolButton::HasMenu) && look == Look::ToolBar) {
        const int left = option.rect.right() + 1 - kBehindDrop - kDropSize;
        const QRect place(left, option.rect.top(), kDropSize, option.rect.height());
        PaintSign(painter, place, Sign::Down, kDropSize, isDark);
    }
    return colours.ink;
}

}  // namespace commtest
