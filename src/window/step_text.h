#pragma once

#include <QLabel>

namespace commtest {

// A few lines of words in caption type. Where there is no room for all, only whole lines are shown, from the
// first on, and the tip has the rest.
class StepText : public QLabel {
    Q_OBJECT

  public:
    explicit StepText(QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

}  // namespace commtest
