#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <functional>

#include "window/binder.h"
#include "window/text_spin_box.h"

// One line binds a control to its widget, both ways: texts, ticks and choices, and whether the widget is
// shown and may be used.
namespace commtest {

void Bind(Binder& binder, TextControl& control, QLabel& label);  // one way
void Bind(Binder& binder, TextControl& control, QLineEdit& edit);
void Bind(Binder& binder, TextControl& control, TextSpinBox& spinBox);
void Bind(Binder& binder, TickControl& control, QAbstractButton& button);

// A button for each option, in their order.
void Bind(Binder& binder, OptionGroup& control, const QList<QAbstractButton*>& buttons);

// A text that is not in the list is shown all the same. Choosing an entry sets the text and runs the click;
// typing into an editable box only sets the text.
void Bind(Binder& binder, ListControl& control, QComboBox& comboBox);

void BindPresence(Binder& binder, const Presence& control, QWidget& widget);

// Enter and the blank key act on a widget that only knows a double click; the tabulator reaches it.
void WhenEntered(QWidget& widget, std::function<void()> entered);

// `left` runs when the user leaves the widget or its parts for another one of the window; a menu, a box or
// another program takes the focus only for a while.
void WhenLeft(QWidget& widget, std::function<void()> left);

}  // namespace commtest
