#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// One step: its number in a ring, which is a tick when it is done, what it is, and how to do it.
class FirstStep : public QWidget {
    Q_OBJECT

  public:
    FirstStep(int number, const QString& title, const Theme& theme, QWidget* parent);

    void SetText(const QString& text) { text_->setText(text); }
    void SetAction(const QString& caption, const QString& key, std::function<void()> act);
    void SetDone(bool done);
    bool IsDone() const { return isDone_; }

  private:
    void ShowRing();

    const Theme& theme_;
    int number_;
    QString title_;
    QLabel* ring_;
    QLabel* text_;
    bool isDone_ = false;
};

// The way to the first exchange, in place of the record: port, instrument, start, and what to do without an
// instrument.
class FirstSteps : public QWidget {
    Q_OBJECT

  public:
    FirstSteps(Binder& binder, const Theme& theme, QWidget* parent);

    // Looks which steps are done.
    void Follow();

  signals:
    void PortPageWanted();
    void SearchWanted();
    void StartWanted();
    void SimulatorWanted();

  private:
    QWidget* MakeTrial();
    void FollowPort();

    MainForm& form_;
    FirstStep* port_;
    FirstStep* instrument_;
    FirstStep* start_;
    std::uint64_t instrumentAtFirst_;
    std::uint64_t addressAtFirst_;
    QTimer plugs_;  // adapters come and go
};

}  // namespace commtest
