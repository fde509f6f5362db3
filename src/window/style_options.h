#pragma once

#include <QStyleOptionButton>

#include "window/look.h"
#include "window/style_painting.h"
#include "window/tokens.h"

// Boxes to tick and options to choose: a mark and words behind it.
namespace commtest {

constexpr int kMarkSize = 14;
constexpr int kFocusRoom = 4;  // left of the mark and right of the words, for the frame of the focus

QSize SizeOfOption(Look look, QSize words);
QRect MarkOfOption(const QRect& option, Look look);
QRect WordsOfOption(const QRect& option, Look look);
int GapOfOption(Look look);

void PaintTick(QPainter& painter, const QRect& mark, QStyle::State state, const Tokens& tokens, bool isDark);
void PaintChoice(QPainter& painter, const QRect& mark, QStyle::State state, const Tokens& tokens);
void PaintFocusOfOption(QPainter& painter, const QStyleOption& option, const Tokens& tokens);

QColor InkOfOption(QStyle::State state, Look look, bool isChoice, const Tokens& tokens);

}  // namespace commtest
