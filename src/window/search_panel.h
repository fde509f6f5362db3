#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QWidget>

#include "window/binder.h"

namespace commtest {

// FindFrame: a band under the tab row with what a search needs. It stands over nothing and is not modal: the
// hits appear in the record below.
class SearchPanel : public QWidget {
    Q_OBJECT

  public:
    SearchPanel(Binder& binder, QWidget* parent);

    static constexpr int kTwoLineWidth = 980;  // in a narrower one the hint has a line of its own

    void SetNarrow(bool narrow);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void FillFirstLine();
    void FillSecondLine();
    void AddButton(const QString& caption, int index, bool isPrimary);
    void Press(int index);

    Binder& binder_;
    QHBoxLayout* firstLine_;
    QHBoxLayout* secondLine_;
    QHBoxLayout* thirdLine_;
    QLabel* hint_;
};

}  // namespace commtest
