#pragma once

#include <QCheckBox>
#include <functional>

#include "window/binder.h"
#include "window/scroll_hold.h"

namespace commtest {

// 跟随, the reverse of ConSelChange: the parameter grid follows the row that is read. While the grid stands
// still all the same, the tick is quiet and its tooltip says why.
class FollowTick : public QCheckBox {
    Q_OBJECT

  public:
    FollowTick(Binder& binder, QWidget* parent);

    // Where the reason comes from; it is asked at each look.
    void AskForReason(std::function<HoldReason()> reason);

  private:
    void ShowReason(HoldReason reason);

    Binder& binder_;
    HoldReason shown_ = HoldReason::None;
};

}  // namespace commtest
