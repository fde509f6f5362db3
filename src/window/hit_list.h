#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTableView>

#include "window/binder.h"
#include "window/search_state.h"
#include "window/theme.h"

namespace commtest {

class HitModel;
class NoteBar;

// What a search has found: Enter or a double click takes the address and the baud rate of a hit over into the
// session, which for this comes back from a search that was broken off; all of them go into a file.
class HitList : public QWidget {
    Q_OBJECT

  public:
    HitList(Binder& binder, const Theme& theme, NoteBar& notes, SearchReturn& wayBack, QWidget* parent);

    // While the search panel stands; and behind the end of a search that has found something, until the next
    // start or the next explanation of a value.
    bool Stands() const { return form_.FindFrame.Visible() || isOver_; }

    void FollowInTabOrder(QWidget& former);

    // Writes them to a file, and says so.
    void SaveTo(const QString& path);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* MakeTitle();
    void MakeTable(const Theme& theme);
    void Follow();
    void FollowEnd();
    void ShowTitle();
    void TakeOver(int row);
    void TakeOverCurrent();
    void AskForFile();

    Binder& binder_;
    MainForm& form_;
    NoteBar& notes_;
    SearchReturn& wayBack_;
    HitModel* hits_;
    QTableView* table_;
    QLabel* title_;
    QPushButton* takeOver_;
    QPushButton* export_;
    SearchState state_ = SearchState::None;
    bool isOver_ = false;
};

}  // namespace commtest
