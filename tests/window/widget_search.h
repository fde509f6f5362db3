#pragma once

#include <QAbstractButton>
#include <QWidget>

namespace commtest::testing {

// Widgets of a view as the user knows them; null if there is none.
template <typename Widget>
Widget* FindNamed(const QWidget& view, const QString& accessibleName) {
    for (Widget* widget : view.findChildren<Widget*>()) {
        if (widget->accessibleName() == accessibleName) return widget;
    }
    return nullptr;
}

inline QAbstractButton* FindButton(const QWidget& view, const QString& caption) {
    for (auto* button : view.findChildren<QAbstractButton*>()) {
        if (button->text() == caption) return button;
    }
    return nullptr;
}

}  // namespace commtest::testing
