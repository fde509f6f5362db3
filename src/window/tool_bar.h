#pragma once

#include <QToolButton>
#include <QWidget>
#include <initializer_list>

#include "commands/toolbar_commands.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// Toolbar1: its buttons by index, with their drop-down menus.
class ToolBar : public QWidget {
    Q_OBJECT

  public:
    ToolBar(Binder& binder, const Theme& theme, QWidget* parent);

    // Icons alone; the button that starts and stops keeps its caption.
    void SetCompact(bool compact);

    QToolButton& Button(int index) const;  // 2 to 11

  signals:
    void OperationMenuWanted();  // "指令选择"

  private:
    QToolButton* MakeButton(int index);
    void AddMenu(int index, std::initializer_list<ToolbarEntry> entries);
    void ShowStartStop();
    void ShowIcons();

    Binder& binder_;
    const Theme& theme_;
};

}  // namespace commtest
