#pragma once

#include <QStyleOptionButton>

#include "window/look.h"
#include "window/style_painting.h"
#include "window/tokens.h"

// Buttons, with words and of tools. Nothing moves when they get the focus.
namespace commtest {

// Whether the style knows a tool button of that look; others are the toolkit's.
bool IsToolOfOurs(Look look);

// A push button about its words.
QSize SizeOfPushButton(const QWidget* button, QSize words);

// A tool button about its icon and words.
QSize SizeOfToolButton(const QStyleOptionToolButton& option, Look look, QSize contents);

QRect ContentsOfPushButton(const QRect& button, Look look);
QRect ContentsOfToolButton(const QStyleOptionToolButton& option, Look look);

// The ground and the edge. What is written on them has the colour that comes back.
QColor PaintPushButton(QPainter& painter, const QStyleOptionButton& option, const QWidget* button,
                       const Tokens& tokens);
QColor PaintToolButton(QPainter& painter, const QStyleOptionToolButton& option, Look look,
                       const Tokens& tokens, bool isDark);

}  // namespace commtest
