#pragma once

#include <QTabBar>
#include <QToolButton>
#include <QWidget>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class FilterBox;
class FollowTick;

// The row over the pages: the button of the sidebar, the tabs of SSTab2, the filter of the grid below,
// whether it follows and, above the column that it rules, WriteType.
class TabRow : public QWidget {
    Q_OBJECT

  public:
    TabRow(Binder& binder, const Theme& theme, QWidget* parent);

    QToolButton& SidebarButton() { return *sidebarButton_; }
    QTabBar& Tabs() { return *tabs_; }
    FollowTick& Follow() { return *follow_; }
    FilterBox& Filter() { return *filter_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void AddWriteTypes(Binder& binder);

    QToolButton* sidebarButton_;
    QTabBar* tabs_;
    FilterBox* filter_;
    FollowTick* follow_;
};

}  // namespace commtest
