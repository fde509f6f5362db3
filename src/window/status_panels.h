#pragma once

#include <QStatusBar>

#include "window/binder.h"

namespace commtest {

// StatusBar1: the maker's line with the catalogue, the state of the port behind the dot that blinks while the
// session polls, and the clock. A passing word to the user stands over them for some seconds.
class StatusPanels : public QStatusBar {
    Q_OBJECT

  public:
    StatusPanels(Binder& binder, QWidget* parent);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void AddMakerPanel();
    void AddPortPanel();
    void FollowNote();
    void SwitchCatalogue();

    Binder& binder_;
    QWidget* maker_ = nullptr;
};

}  // namespace commtest
