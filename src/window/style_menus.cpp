#include "window/style_menus.h"

#include <QIcon>
#include <algorithm>

namespace commtest {

namespace {

constexpr int kLeft = 28;
constexpr int kRight = 24;
constexpr int kAbove = 4;
constexpr int kLineHeight = 20;
constexpr int kSignLeft = 8;
constexpr int kSignSize = 16;
constexpr int kArrowSize = 8;
constexpr int kGapBeforeKeys = 12;
constexpr int kRoomOfTicks = 20;
constexpr int kGapBehindIcons = 4;

// Where no entry has a sign, the words stand closer to the edge.
int RoomOfSigns(const QStyleOptionMenuItem& option) {
    if (option.maxIconWidth > 0) return option.maxIconWidth + kGapBehindIcons;
    return option.menuHasCheckableItems ? kRoomOfTicks : 0;
}

void PaintSignOf(QPainter& painter, const QStyleOptionMenuItem& option, bool isDark) {
    const QRect& entry = option.rect;
    const QRect place(entry.left() + kSignLeft, entry.top(), kSignSize, entry.height());
    const bool isTicked = option.checkType != QStyleOptionMenuItem::NotCheckable && option.checked;
    if (!option.icon.isNull()) {
        const bool isEnabled = Has(option.state, QStyle::State_Enabled);
        option.icon.paint(&painter, place, Qt::AlignCenter, isEnabled ? QIcon::Normal : QIcon::Disabled);
    } else if (isTicked) {
        PaintSign(painter, place, Sign::MenuTick, kSignSize, isDark);
    }
}

}  // namespace

QSize SizeOfMenuEntry(const QStyleOptionMenuItem& option, QSize contents) {
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return {contents.width(), 2 * kMenuMargin + 1};
    const int gap = option.text.contains(u'\t') ? kGapBeforeKeys : 0;
    return {contents.width() + gap + kLeft + RoomOfSigns(option) + kRight,
            std::max(contents.height(), kLineHeight) + 2 * kAbove};
}

void PaintMenuEntry(QPainter& painter, const QStyleOptionMenuItem& option, bool showsMnemonics,
                    const Tokens& tokens, bool isDark) {
    const QRect& entry = option.rect;
    if (option.menuItemType == QStyleOptionMenuItem::Separator)
        return painter.fillRect(entry.left(), entry.top() + kMenuMargin, entry.width(), 1, tokens.line);
    const bool isEnabled = Has(option.state, QStyle::State_Enabled);
    if (Has(option.state, QStyle::State_Selected)) painter.fillRect(entry, tokens.tint);
    PaintSignOf(painter, option, isDark);
    const QRect words =
        entry.adjusted(kLeft + RoomOfSigns(option), kAbove, -kRight - option.reservedShortcutWidth, -kAbove);
    const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip | Qt::TextSingleLine |
                      (showsMnemonics ? Qt::TextShowMnemonic : Qt::TextHideMnemonic);
    painter.setPen(isEnabled ? tokens.text : tokens.disabled);
    painter.drawText(words, flags, option.text.section(u'\t', 0, 0));
    const QRect keys(words.topRight(), QPoint(entry.right() - kRight, words.bottom()));
    painter.drawText(keys, flags, option.text.section(u'\t', 1, 1));
}

QRect ArrowOfMenuEntry(const QRect& entry) {
    return {entry.right() - kRight + (kRight - kArrowSize) / 2,
            entry.top() + (entry.height() - kArrowSize) / 2, kArrowSize, kArrowSize};
}

}  // namespace commtest
