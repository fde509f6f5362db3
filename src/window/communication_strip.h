#pragma once

#include <QBoxLayout>
#include <QFrame>
#include <QWidget>

#include "window/binder.h"
#include "window/state_line.h"
#include "window/theme.h"

namespace commtest {

// The strip between the parameter grid and the record: the frame that is sent, how it is shown, the interval,
// the two ways to poll by turns, and the layout of the panes.
class CommunicationStrip : public QWidget {
    Q_OBJECT

  public:
    CommunicationStrip(Binder& binder, const Theme& theme, QWidget* parent);

    static constexpr int kOneLineWidth = 960;  // a narrower one is compact

    // Two lines instead of one.
    void SetCompact(bool compact);

    // In a low window the state line is there only while it says more than the operation.
    void SetLow(bool low);

    StateLine& State() { return *state_; }

  private:
    void AddSentFrame(Binder& binder);
    void AddShowModes(Binder& binder);
    void AddPaneSwitch(Binder& binder);
    void FillPace(Binder& binder);
    void FitHeight();

    QHBoxLayout* firstLine_;
    QHBoxLayout* secondLine_;
    QWidget* pace_;  // interval and turns: within the first line or, compact, the second one
    QFrame* paceBorder_;
    StateLine* state_;
    bool isCompact_ = false;
    bool isLow_ = false;
};

}  // namespace commtest
