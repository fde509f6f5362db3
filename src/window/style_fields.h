#pragma once

#include <QStyleOptionComboBox>

#include "window/look.h"
#include "window/style_painting.h"
#include "window/tokens.h"

// Fields: a line to type into, a list to choose from, a number with steps.
namespace commtest {

constexpr int kFieldHeight = 28;
constexpr int kCompactHeight = 24;
constexpr int kLineInFieldHeight = 24;  // of the line within a list or a number

// Whether it is the line of a list or a number, which have the outline.
bool IsPartOfAField(const QWidget* line);

QSize SizeOfLineEdit(const QWidget* line, QSize contents);
QSize SizeOfComboBox(QSize contents);
QSize SizeOfSpinBox(QSize contents);

QRect ContentsOfLineEdit(const QStyleOption& option, const QWidget* line);
QRect PartOfComboBox(const QStyleOptionComboBox& option, QStyle::SubControl part);
QRect PartOfSpinBox(const QStyleOptionSpinBox& option, QStyle::SubControl part);

void PaintLineEdit(QPainter& painter, const QStyleOption& option, const QWidget* line, const Tokens& tokens);
void PaintComboBox(QPainter& painter, const QStyleOptionComboBox& option, Look look, const Tokens& tokens,
                   bool isDark);
void PaintSpinBox(QPainter& painter, const QStyleOptionSpinBox& option, const Tokens& tokens, bool isDark);

}  // namespace commtest
