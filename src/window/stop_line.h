#pragma once

#include <QObject>
#include <optional>

#include "window/binder.h"
#include "window/state_line.h"

namespace commtest {

class RecordView;

// Says on the state line why the session has stopped, until the next start: a failure with what was wrong and
// the way to it, another stop quietly. While the cell editor is open that has stopped it, another source says
// so.
class StopLine : public QObject {
    Q_OBJECT

  public:
    StopLine(Binder& binder, StateLine& line, RecordView& record);

  private:
    std::optional<StateMessage> Failure();
    std::optional<StateMessage> Quiet() const;

    void Follow();
    void FollowPort();
    StateMessage MakeFailure();
    StateMessage OfException();
    StateMessage OfPort(const QString& text);
    QString PortInUse() const;
    bool HoldsStop() const;

    void ShowRecord();

    Binder& binder_;
    MainForm& form_;
    RecordView& record_;

    Stop shown_;  // the stop that is told; none while the session runs
    std::optional<StateMessage> failure_;
    int port_ = 0;  // of the running session, with its device as it was then
    QString device_;
};

}  // namespace commtest
