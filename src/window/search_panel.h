#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "window/binder.h"
#include "window/search_line.h"
#include "window/search_state.h"
#include "window/theme.h"

namespace commtest {

// FindFrame: a band under the tab row with what a search needs. It stands over nothing and is not modal: the
// hits appear in the record below.
class SearchPanel : public QWidget {
    Q_OBJECT

  public:
    SearchPanel(Binder& binder, const Theme& theme, QWidget* parent);

    static constexpr int kTwoLineWidth = 980;  // in a narrower one the hint has a line of its own

    // From a search that was begun here.
    SearchReturn& WayBack() { return wayBack_; }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void FillFirstLine();
    void FillSecondLine();
    QPushButton* AddButton(const QString& caption, int index);
    void Press(int index);
    void FitLines();

    Binder& binder_;
    SearchReturn wayBack_;
    QHBoxLayout* firstLine_;
    QHBoxLayout* secondLine_;
    QHBoxLayout* thirdLine_;
    QLabel* hint_;
    QPushButton* start_ = nullptr;
    SearchLine* search_ = nullptr;
    ShareBar* share_ = nullptr;
    bool isNarrow_ = false;
};

}  // namespace commtest
