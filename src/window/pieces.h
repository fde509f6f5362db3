#pragma once

#include <QFrame>
#include <QLabel>
#include <QWidget>

// Small pieces that the pages are put together of.
namespace commtest {

// A line of one pixel; `length` 0 takes what there is.
QFrame* MakeHairline(Qt::Orientation orientation, int length = 0);

// A label in caption type; `buddy` gets its accessible name from it.
QLabel* MakeCaption(const QString& text, QWidget* buddy = nullptr);

// A field under its caption.
QWidget* MakeCaptioned(const QString& caption, QWidget* field);

}  // namespace commtest
