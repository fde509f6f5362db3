#include "cli/line_session.h"

#include <algorithm>

#include "cli/catalogue_access.h"
#include "cli/instrument_choice.h"
#include "cli/notice_words.h"
#include "session/cycle_step.h"
#include "session/events.h"
#include "session/port_settings.h"
#include "session/start_stop.h"

namespace commtest {

namespace {

constexpr int kTimeBetweenOpenings = 1000;  // milliseconds

}  // namespace

LineSession::LineSession(const LineOptions& options, Console& console)
    : console_(console),
      files_(options.folder),
      transport_(MakeLineTransport(options.devices)),
      dialogs_(console),
      session_({traced_, dialogs_, clock_, files_, store_, settings_, program_},
               {*options.words, kChineseFace.settingsTable, kChineseFace.switches}),
      nextOpening_(false, kTimeBetweenOpenings) {
    OpenCatalogueOf(files_, store_, options.catalogue, console);
    if (options.catalogue.use == CatalogueUse::Writing) PrepareForWriting(store_, files_, console);
    ChooseInstrument(Form(), options);
    ShowStoredPortSettings(Form(), options.settings + u" " + options.port);
    WireEvents();
}

void LineSession::WireEvents() {
    QtSerialPort& port = transport_->Port();
    port.Receives = [this] {
        PortReceives(Form());
        if (IsBetweenExchanges()) TellEndOfUnjudged(Ending::Complete);
        LookAtSession();
    };
    port.IsLost = [this](const Text& reason) {
        PortIsLost(Form(), reason);
        LookAtSession();
    };
    port.IsBack = [this](const Text&) { NotePortIsBack(); };
    port.IsGoneAgain = [this] { isPortBack_ = false; };
    Form().StatusNote.Change = [this] { console_.Tell(WordsOn(Form().StatusNote.Value())); };
    for (int index = 0; index < static_cast<int>(Form().Timer1.size()); ++index) {
        transport_->Drive(Form().Timer1[static_cast<std::size_t>(index)], [this, index] { Tick(index); });
    }
    transport_->Drive(nextOpening_, [this] {
        nextOpening_.SetEnabled(false);
        NotePortIsBack();
    });
}

// Several events can fall into one round of the event loop: a tick behind the end of a run waits for the
// next.
void LineSession::Tick(int index) {
    if (isDone_ == nullptr) return;
    const bool beginsExchange = index == 1 && IsBetweenExchanges();
    if (beginsExchange && FrameIsNext) FrameIsNext();
    const auto framesBefore = Form().SendCount;
    const bool isWaiting = Form().CycleStep == cycle_step::kWaiting;
    TimerTicks(Form(), index);
    if (IsBetweenExchanges()) TellEndOfUnjudged(isWaiting ? Ending::Silent : Ending::Incomplete);
    if (beginsExchange && Form().SendCount != framesBefore) {
        ++exchanges_;
        NoteUnjudgedBegin();
    }
    LookAtSession();
}

void LineSession::NoteUnjudgedBegin() {
    if (Form().ProtocolInUse().judge == nullptr) unjudgedAt_ = Form().ReplyText.size();
}

// Such a protocol keeps what has come before.
void LineSession::TellEndOfUnjudged(Ending ending) {
    if (!unjudgedAt_) return;
    const HexText& all = Form().ReplyText;
    Outcome outcome;
    outcome.exchange = Form().UnderWay;
    outcome.exchange.reply = all.substr(std::min(*unjudgedAt_, all.size()));
    outcome.exchange.ending = ending;
    unjudgedAt_.reset();
    if (ExchangeEnded) ExchangeEnded(outcome);
}

void LineSession::TellEndedExchanges() {
    const OutcomeRing& outcomes = Form().Outcomes;
    for (; toldOutcomes_ < outcomes.Total(); ++toldOutcomes_) {
        const auto back = static_cast<std::size_t>(outcomes.Total() - toldOutcomes_ - 1);
        if (ExchangeEnded) ExchangeEnded(*outcomes.Last(back));
    }
}

void LineSession::LookAtSession() {
    TellEndedExchanges();
    if (isDone_ == nullptr) return;
    if (!Form().IsRunning()) {
        EndRun(WhyStopped());
    } else if (!Form().PollTimer().Enabled()) {
        EndRun(End::BadRun);
    } else if ((*isDone_)()) {
        EndRun(End::Done);
    }
}

LineSession::End LineSession::WhyStopped() {
    switch (Form().LastStop().cause) {
        case StopCause::PortRefused: return End::NoPort;
        case StopCause::PortLost: return End::PortLost;
        case StopCause::SearchOver: return End::Done;
        default: return End::Refused;
    }
}

void LineSession::EndRun(End end) {
    if (isDone_ == nullptr) return;
    isDone_ = nullptr;
    end_ = end;
    transport_->Quit();
}

LineSession::End LineSession::Run(const std::function<bool()>& isDone) {
    isDone_ = &isDone;
    transport_->Run(Looks);
    return end_;
}

void LineSession::Quit() {
    if (isWaitingForPort_) transport_->Quit();
    EndRun(End::Done);
}

void LineSession::NotePortIsBack() {
    isPortBack_ = true;
    if (isWaitingForPort_) transport_->Quit();
}

// A device that is found again may refuse its first opening all the same.
bool LineSession::WaitForPort() {
    unjudgedAt_.reset();
    isPortBack_ = false;
    nextOpening_.SetEnabled(WhyStopped() == End::NoPort);
    isWaitingForPort_ = true;
    transport_->Run(Looks);
    isWaitingForPort_ = false;
    nextOpening_.SetEnabled(false);
    return isPortBack_;
}

void LineSession::Stop() {
    RunEvent(Form(), [this] {
        if (Form().IsRunning()) StartOrStop(Form(), {StopCause::User});
    });
    // A stopped session closes its port in its last tick.
    TimerTicks(Form(), 1);
}

}  // namespace commtest
