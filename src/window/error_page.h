#pragma once

#include <QBoxLayout>
#include <QStackedWidget>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

class EmptyState;
class NoteBar;

// The page 错误记录: the statistics, and the error file to read, to load again and to empty. It is loaded
// again behind each stop; while the session runs and where nothing is logged, the page says so. The file is
// emptied only where the user agrees, and kept under another name.
class ErrorPage : public QWidget {
    Q_OBJECT

  public:
    ErrorPage(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* parent);

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    enum class State { Unknown, Running, NotLogged, NoErrors, Errors };

    QWidget* MakeStrip(const Theme& theme);
    QWidget* MakeErrors(const Theme& theme);
    void AddButton(QHBoxLayout& line, int index, const QString& caption, const QString& tip);

    void LoadIfOutdated();
    void Load();
    void Follow();
    State StateNow() const;
    void Show(State state);
    void EmptyFile();
    bool MayEmptyFile(Text& keptAs);

    Binder& binder_;
    MainForm& form_;
    NoteBar& notes_;
    QStackedWidget* contents_;
    EmptyState* empty_;
    State state_ = State::Unknown;
    bool wasRunning_ = false;
    bool isOutdated_ = false;
};

}  // namespace commtest
