#pragma once

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "controls/timer.h"
#include "host/notice.h"
#include "session/companions.h"
#include "session/conversation.h"
#include "session/face.h"
#include "session/outcome_ring.h"
#include "session/protocol.h"
#include "session/record_pane.h"
#include "session/search_hit.h"
#include "session/statistics_number.h"
#include "session/stop.h"

namespace commtest {

class ProgramFiles;
class ProgramProcess;
class SerialPort;
class SettingsStore;
class Store;

// Everything outside the program that a session uses.
struct Outside {
    SerialPort& port;
    Dialogs& dialogs;
    Clock& clock;
    ProgramFiles& files;
    Store& store;
    SettingsStore& settings;
    ProgramProcess& program;
};

// Captions of the ticks ConSettingBT.
inline constexpr std::array<TextView, 8> kSearchBaudRates = {u" 1200",  u" 2400",  u" 4800",  u" 9600",
                                                             u" 19200", u" 28800", u" 38400", u" 57600"};

// Where the keyboard focus was last asked to go; a view follows it.
class FocusWish : public Control {
  public:
    enum class Target { None, ParameterGrid, CatalogueGrid, CellEditor, Address };

    Target Wanted() const { return wanted_; }
    void Ask(Target target) {
        wanted_ = target;
        MarkDirty();
    }

  private:
    Target wanted_ = Target::None;
};

// Holds the last notice; each one is told, also one that says the same.
class NoticeControl : public Control {
  public:
    Handler Change;

    const Notice& Value() const { return notice_; }
    void Set(Notice notice) {
        notice_ = std::move(notice);
        MarkDirty();
        RunIfSet(Change);
    }

  private:
    Notice notice_;
};

// --- What belongs together, by owner ---

// The wait for a reply, and the exchange under way.
struct LineState {
    std::int16_t CycleStep = 0;           // session/cycle_step.h
    std::int16_t RxEventCount = 0;        // events of two bytes or more since the last send; each buys a tick
    std::int16_t WaitTicks = 0;           // ticks spent waiting
    std::int16_t ReplyTimeout = 0;        // tick length in milliseconds while waiting
    std::int32_t PartialReplyLength = 0;  // length of ReplyText at the last unfinished look, not read (Q41)
    Text LogLine;                         // the line of the record under composition
    RecordParts LogParts;                 // of LogLine
    Exchange UnderWay;                    // begins with the frame that has left, ends with the reply
    OutcomeRing Outcomes;
};

// Failures since the counters were last cleared; SendCount stands with the frames.
struct FailureCounters {
    std::int32_t IncompleteCount = 0;   // replies that ended by time-out after some bytes
    std::int32_t NoReplyCount = 0;      // requests that ended by time-out without a byte
    std::int32_t CheckErrorCount = 0;   // replies with a bad check word
    std::int16_t SearchFoundCount = 0;  // replies seen by a search
};

// 多台通讯; the index counts from 1, 0 before the first.
struct MultiInstrument {
    std::int16_t MultiAddressCount = 0;
    std::vector<std::int16_t> MultiAddressList;
    std::int16_t MultiAddressIndex = 0;
    TickControl Check1;
};

// The replay script and its cursor, from 0; the note and the counts of a capture.
struct ReplayScript {
    Text DemoInstrument;  // of the script
    Text DemoNote;
    std::vector<HexText> DemoFrames;
    std::vector<HexText> DemoReplies;
    std::vector<std::int16_t> DemoRows;
    std::int16_t DemoIndex = 0;
    Text CaptureNote;                  // of the run of the program
    bool CaptureWaits = false;         // for the store, which is within another's transaction
    std::int32_t CapturedCount = 0;    // pairs stored since ConSaveData was last clicked
    std::int32_t KnownPairCount = 0;   // and those that were there already
    std::int32_t MissedPairCount = 0;  // and those for which the store was not waited any longer
    TickControl ConMyCommDriver;
};

// The interval timer, Timer1(2).
struct IntervalRun {
    Text IntervalLastRun;  // "HH:MM"
    std::int16_t IntervalMinutes = 0;
    TickControl TimeSetup;
};

// A search under way.
struct SearchWalk {
    std::int16_t SearchBaudIndex = 0;  // into ConSettingBT
    std::int16_t SearchStartAddress = 0;
    std::int16_t SearchEndAddress = 0;
    std::int32_t SearchStartTime = 0;  // second of the day
    Text SearchSavedAddress;           // ConMeterAddr before it
    Text SearchSavedDelay;             // ConDelayTime before it
    std::vector<SearchHit> SearchHits;
};

// The search panel.
struct SearchChoice {
    Presence FindFrame;
    ListControl ConSettingComm;                                                         // port
    std::array<TextControl, 2> ConSettingDE = {TextControl(u"1"), TextControl(u"10")};  // first, last address
    std::array<TickControl, 8> ConSettingBT;                                            // kSearchBaudRates
};

// The record, the other texts that come and go, and what keeps them.
struct RecordTexts {
    std::array<RecordPane, 2> ConCommString;           // 0 conversion texts, 1 the record
    RecordPane RichTextBox1;                           // shows the help text
    RecordPane RichTextBox2;                           // shows the error file
    std::array<TextControl, 3> ConCommMessage;         // failure line, total line, both
    std::array<StatisticsNumbers, 3> ShownStatistics;  // the numbers in these captions
    std::array<TickControl, 2> ConAutoSave;            // 0 the record, 1 errors
    std::array<Presence, 2> ClearFileCommand;
    TickControl ConSaveData;
    std::int16_t ShowTypeStep = 0;  // layout step of the two panes, 0..2

    RecordPane& Explanation() { return ConCommString[0]; }
    RecordPane& Record() { return ConCommString[1]; }
};

// The choice of protocol, instrument and port.
struct Choices {
    ListControl ConCommTypeList;                   // protocol names
    OptionGroup ConMeterType;                      // a button for each protocol row
    std::vector<std::int16_t> ProtocolCodeOfType;  // the code behind each of these
    ListControl ConDataTypeList;
    OptionGroup ShowMode{0};                      // 0 ASCII, 1 hexadecimal
    std::array<ListControl, 5> ConCommSetting;    // port, baud rate, data bits, parity, stop bits
    std::array<ListControl, 1> ConSendOutString;  // shows the frame; lists each distinct frame sent
    TextControl ConDelayTime{u"100"};             // milliseconds between two exchanges
    std::int32_t DelayStep = 1;                   // of ConDelayTime's spin buttons, in milliseconds

    ListControl& PortName() { return ConCommSetting[0]; }
    ListControl& BaudRate() { return ConCommSetting[1]; }
    const ListControl& BaudRate() const { return ConCommSetting[1]; }
    ListControl& DataBits() { return ConCommSetting[2]; }
    ListControl& Parity() { return ConCommSetting[3]; }
    const ListControl& Parity() const { return ConCommSetting[3]; }
    ListControl& StopBits() { return ConCommSetting[4]; }
    ListControl& SentFrames() { return ConSendOutString[0]; }
};

// The panel of the chip records; its list is grid 3.
struct ChipFields {
    Presence ConCpuDataShow;
    std::array<ListControl, 6> ConCpudataCombo;  // 仪表名称, 编号, CPU文件名, 输入日期, 实例, 属性
    TextControl ConCpudataText;                  // 功能简述
};

// What of the window is not one of these.
struct WindowState {
    TextControl Caption;
    Presence ComShow;  // blink indicator
    std::array<TextControl, 3> StatusBar1;
    Text ServerProblem;  // why the server's catalogue was not opened; empty where it was, or was not asked
    NoticeControl StatusNote;  // a passing word to the user, beside the three panels
    OptionGroup SSTab2{0};
    FocusWish Focus;
    Handler ToolWindowWanted;  // wired by app/
    bool Activated = false;    // the work of the start is done
};

// The whole state of a session: its fields, its controls as plain values, and the parameter grid, whose cells
// are the data model. Routines are free functions over it, or over the part of it that they need. One thread.
class MainForm : public Conversation,
                 public LineState,
                 public FailureCounters,
                 public MultiInstrument,
                 public ReplayScript,
                 public IntervalRun,
                 public SearchWalk,
                 public SearchChoice,
                 public RecordTexts,
                 public Choices,
                 public ChipFields,
                 public WindowState {
  public:
    MainForm(const Outside& theOutside, const ProtocolTable& protocolTable, Companions& companionRoutines,
             const Face& face = kChineseFace);
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;

    const Outside outside;
    SerialPort& MSComm1;
    const ProtocolTable& protocols;
    Companions& companions;
    const Texts& texts;
    const TextView settingsTable;

    std::array<Timer, 3> Timer1 = {Timer(true, 1000), Timer(false, 300), Timer(false, 1000)};
    Timer& PollTimer() { return Timer1[1]; }
    const Timer& PollTimer() const { return Timer1[1]; }
    Timer& IntervalTimer() { return Timer1[2]; }

    // Whether the session runs; toolbar button 4 shows the one or the other caption.
    bool IsRunning() const { return running_.Value(); }
    void SetRunning(bool running) { running_.Set(running); }
    // Why it stopped the last time.
    const Stop& LastStop() const { return lastStop_; }
    void NoteStop(Stop stop);
    TextView StartStopCaption() const { return IsRunning() ? texts.stop : texts.start; }
    const TickControl& RunningState() const { return running_; }

    const Protocol& ProtocolInUse() const { return protocols.Of(ProtocolCode); }

  private:
    TickControl running_;
    Stop lastStop_;
};

}  // namespace commtest
