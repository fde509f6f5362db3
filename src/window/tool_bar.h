#pragma once

#include <QToolButton>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <map>

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

    // What the button or the entry, and the key of its command, do instead of the command.
    void Take(int index, std::function<void()> action) { taken_[index] = std::move(action); }
    void Take(ToolbarEntry entry, std::function<void()> action) { takenEntries_[entry] = std::move(action); }
    void Press(int index);

    QAction* AddEntry(int index, const QString& caption, std::function<void()> action);  // to its menu
    QAction* Entry(ToolbarEntry entry) const;

  signals:
    void OperationMenuWanted();  // "指令选择"

  private:
    QToolButton* MakeButton(int index);
    void Choose(ToolbarEntry entry);
    void AddMenu(int index, std::initializer_list<ToolbarEntry> entries);
    void ShowStartStop();
    void ShowIcons();

    Binder& binder_;
    const Theme& theme_;
    std::map<int, std::function<void()>> taken_;
    std::map<ToolbarEntry, std::function<void()>> takenEntries_;
};

}  // namespace commtest
