#pragma once

#include <QStyleOptionMenuItem>

#include "window/style_painting.h"
#include "window/tokens.h"

// Menus and their entries.
namespace commtest {

constexpr int kMenuMargin = 4;  // above the first entry and below the last one

QSize SizeOfMenuEntry(const QStyleOptionMenuItem& option, QSize contents);

// But for the arrow of a menu below it.
void PaintMenuEntry(QPainter& painter, const QStyleOptionMenuItem& option, bool showsMnemonics,
                    const Tokens& tokens, bool isDark);

QRect ArrowOfMenuEntry(const QRect& entry);

}  // namespace commtest
