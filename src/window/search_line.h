#pragma once

#include <QLabel>
#include <QPushButton>

#include "search/instrument_search.h"
#include "window/binder.h"
#include "window/search_state.h"
#include "window/theme.h"

namespace commtest {

// The third line of the search panel: how far a search is, or what one that was broken off has left, with
// what can be done about it. Not there without either.
class SearchLine : public QWidget {
    Q_OBJECT

  public:
    // The focus goes between `start`, which begins a search, and what the line offers.
    SearchLine(Binder& binder, const Theme& theme, SearchReturn& wayBack, QWidget& start, QWidget* parent);

    SearchState Shown() const { return state_; }
    double ShareDone() const;

  signals:
    void Changed();  // what the line is about
    void Moved();    // the search has gone on

  private:
    void Follow();
    void ShowState(SearchState state);
    void PassFocus();
    void ShowProgress();
    void ShowLeftState();
    void ShowSign();
    void TellListener();

    Binder& binder_;
    MainForm& form_;
    const Theme& theme_;
    SearchReturn& wayBack_;
    QWidget& start_;
    SearchState state_ = SearchState::None;
    SearchProgress progress_;
    QString said_;  // by the line now
    QString told_;  // what who listens has been told of
    QLabel* sign_;
    QLabel* words_;
    QPushButton* stop_;
    QPushButton* goBack_;
};

// The share that a search has done, as a bar at the lower edge of the panel.
class ShareBar : public QWidget {
  public:
    ShareBar(const SearchLine& line, const Theme& theme, QWidget* parent);

    static constexpr int kHeight = 4;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const SearchLine& line_;
    const Theme& theme_;
};

}  // namespace commtest
