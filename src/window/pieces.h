#pragma once

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPalette>
#include <QPushButton>
#include <QWidget>

#include "runtime/number.h"
#include "runtime/text.h"
#include "window/style_options.h"

// Small pieces that the pages are put together of.
namespace commtest {

// A text of the core as the toolkit takes it.
inline QString ToQt(TextView text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

// "8,391"
inline QString GroupedNumber(qint64 number) { return ToQt(GroupedText(static_cast<double>(number), 0)); }

// Caption type, in its colour.
void ShowAsCaption(QLabel& label);

// In the colour of failures, or in that of `otherwise`.
void ShowAsFailure(QLabel& label, bool isFailure, QPalette::ColorRole otherwise);

// A line of one pixel; `length` 0 takes what there is.
QFrame* MakeHairline(Qt::Orientation orientation, int length = 0);

// Where options stand in a column with other widgets, those are moved, so that the marks stand under them:
// the frame of the focus reaches into the column's margin, which is less by kFocusRoom.
QHBoxLayout* MakeMarkAligned(QWidget* widget);

// The head of a group: a line as high as the design has it, whatever the font.
QLabel* MakeTitle(const QString& text);

// A line of caption type, of a fixed height, too; `buddy` gets its accessible name from it.
QLabel* MakeCaption(const QString& text, QWidget* buddy = nullptr);

// Caption type of as many lines as it takes.
QLabel* MakeHint(const QString& text);

// What can be done about a line of words, at its end: a button that looks like a word.
QPushButton* MakeLineAction(const QString& text);

// A field under its caption.
QWidget* MakeCaptioned(const QString& caption, QWidget* field);

}  // namespace commtest
