#pragma once

#include <QFrame>
#include <QLabel>

#include "window/theme.h"

namespace commtest {

// The hint at the cell editor: what may be entered, what speaks against the text, and what the keys do then.
class EditorHint : public QFrame {
  public:
    EditorHint(const Theme& theme, QWidget* parent);

    // Lines that are empty are left out; without any it hides.
    void Say(const QString& limits, const QString& objection, const QString& keys);

    // Under the editor, above it where the view of the grid ends below; the right edges are equal. Both in
    // coordinates of its parent.
    void PlaceAt(const QRect& editor, const QRect& view);

    QString Words() const;  // all that it says

  private:
    const Theme& theme_;
    QLabel* limits_;
    QLabel* sign_;
    QLabel* objection_;
    QLabel* keys_;
};

}  // namespace commtest
