#pragma once

#include <functional>
#include <memory>

#include "app/session.h"
#include "cli/console_dialogs.h"
#include "cli/line_options.h"
#include "cli/line_transport.h"
#include "cli/traced_port.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/no_settings.h"
#include "host_qt/qt_program.h"
#include "host_qt/system_clock.h"

namespace commtest {

// A session on a real line, with the instrument chosen and the port set; nothing runs yet. Its events happen
// inside Run only.
class LineSession {
  public:
    // A Problem if the catalogue cannot be opened or does not know the names, or if the program does not know
    // the protocol or its address.
    LineSession(const LineOptions& options, Console& console);

    enum class End {
        Done,      // what was waited for has happened, or Quit
        NoPort,    // the port could not be opened
        PortLost,  // the port has gone
        BadRun,    // a run-time error has ended the polling
        Refused,   // the instrument's answer has ended the polling
    };

    // Hears of each exchange behind the event that ended it; the grid holds its data. Of a protocol that
    // judges no replies its verdict says nothing.
    std::function<void(const Outcome&)> ExchangeEnded;
    // In front of each tick that sends a frame of the cycle.
    std::function<void()> FrameIsNext;
    // About ten times a second, inside Run and WaitForPort.
    std::function<void()> Looks;

    // Runs the events until `isDone` holds behind one of them, or the session has stopped by itself.
    End Run(const std::function<bool()>& isDone);
    void Quit();

    // Waits for a port that has gone; false if Quit came first.
    bool WaitForPort();
    bool IsWaitingForPort() const { return isWaitingForPort_; }

    // What the run has counted beside the session.
    struct RunCounts {
        int reconnects = 0;
        int repetitions = 0;
    };
    RunCounts& Counts() { return counts_; }

    // What goes over the line is written down from here on.
    TracedPort& Trace() { return traced_; }

    // The tick behind this call comes as soon as the events run: the cycle's own first interval is for a user
    // who looks on.
    void BeginAtOnce() { Form().PollTimer().SetInterval(0); }

    // Stops the session and closes the port.
    void Stop();

    MainForm& Form() { return session_.Form(); }
    ConsoleDialogs& Dialogs() { return dialogs_; }

    // Frames of the cycle so far; the bytes that ask for a further part of a reply do not count.
    int Exchanges() const { return exchanges_; }
    // The last reply has been judged, or given up on.
    bool IsBetweenExchanges() { return Form().CycleStep == 1; }

  private:
    void WireEvents();
    void Tick(int index);
    void NoteUnjudgedBegin();
    void TellEndOfUnjudged(Ending ending);
    void TellEndedExchanges();
    void LookAtSession();
    End WhyStopped();
    void EndRun(End end);
    void NotePortIsBack();

    Console& console_;
    FolderFiles files_;
    CatalogueStore store_;
    std::unique_ptr<LineTransport> transport_;
    SystemClock clock_;
    TracedPort traced_{transport_->Port(), clock_};
    ConsoleDialogs dialogs_;
    NoSettings settings_;
    QtProgram program_;
    Session session_;

    Timer nextOpening_;
    const std::function<bool()>* isDone_ = nullptr;  // while Run runs
    End end_ = End::Done;
    bool isWaitingForPort_ = false;
    bool isPortBack_ = false;
    RunCounts counts_;
    int exchanges_ = 0;
    std::uint64_t toldOutcomes_ = 0;
    std::optional<std::size_t> unjudgedAt_;  // where the reply under way begins in ReplyText
};

}  // namespace commtest
