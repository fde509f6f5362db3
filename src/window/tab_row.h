#pragma once

#include <QTabBar>
#include <QToolButton>
#include <QWidget>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class FollowTick;

// The row over the pages: the button of the sidebar, the tabs of SSTab2, whether the grid follows and, above
// the column that it rules, WriteType.
class TabRow : public QWidget {
    Q_OBJECT

  public:
    TabRow(Binder& binder, const Theme& theme, QWidget* parent);

    QToolButton& SidebarButton() { return *sidebarButton_; }
    QTabBar& Tabs() { return *tabs_; }
    FollowTick& Follow() { return *follow_; }

  private:
    void AddWriteTypes(Binder& binder);

    QToolButton* sidebarButton_;
    QTabBar* tabs_;
    FollowTick* follow_;
};

}  // namespace commtest
