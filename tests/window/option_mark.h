#pragma once

#include <QAbstractButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>

namespace commtest::testing {

// Where the ring of an option or the box of a tick begins, in pixels from the left of the view.
inline int LeftOfMark(const QAbstractButton& option, const QWidget& view) {
    QStyleOptionButton state;
    state.initFrom(&option);
    const bool isRing = qobject_cast<const QRadioButton*>(&option) != nullptr;
    const QStyle::SubElement mark = isRing ? QStyle::SE_RadioButtonIndicator : QStyle::SE_CheckBoxIndicator;
    return option.mapTo(&view, option.style()->subElementRect(mark, &state, &option).topLeft()).x();
}

}  // namespace commtest::testing
