#pragma once

#include <QWidget>
#include <functional>

namespace commtest {

// Holds the place of a view that most starts do without: it is made when the place is first shown, so that
// the first picture does not wait for it.
class LateView : public QWidget {
    Q_OBJECT

  public:
    LateView(std::function<QWidget*(QWidget* parent)> make, QWidget* parent);

    void setVisible(bool visible) override;

  private:
    void Make();

    std::function<QWidget*(QWidget* parent)> make_;  // empty once it has been used
};

}  // namespace commtest
