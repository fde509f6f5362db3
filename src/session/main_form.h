#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "controls/grid.h"
#include "controls/record_pane.h"
#include "controls/timer.h"
#include "controls/value_controls.h"
#include "host/clock.h"
#include "host/dialogs.h"
#include "host/program_files.h"
#include "host/program_process.h"
#include "host/serial_port.h"
#include "host/settings_store.h"
#include "host/store.h"
#include "runtime/hex_text.h"
#include "session/command_code.h"
#include "session/companions.h"
#include "session/protocol.h"
#include "session/texts.h"

namespace commtest {

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

// The whole state of a session: its fields, its controls as plain values, and the parameter grid, whose cells
// are the data model. Routines are free functions over it. One thread.
class MainForm {
  public:
    MainForm(const Outside& outside, const ProtocolTable& protocolTable, Companions& companionRoutines,
             const Texts& faceTexts = kChineseTexts);
    MainForm(const MainForm&) = delete;
    MainForm& operator=(const MainForm&) = delete;

    // --- Outside and above ---
    SerialPort& MSComm1;
    Dialogs& dialogs;
    Clock& clock;
    ProgramFiles& files;
    Store& store;
    SettingsStore& settings;
    ProgramProcess& program;
    const ProtocolTable& protocols;
    Companions& companions;
    const Texts& texts;

    // --- The session's state ---
    // Which protocol is in use; re-read from MeterCodeText before each routing.
    std::int16_t ProtocolCode = 0;
    Text MeterCodeText;  // 编号 of the chosen instrument; its first two characters: ProtocolCode
    std::int32_t CommandCode = command::kReadDynamicTurn;  // which operation each cycle performs
    std::int16_t CycleStep = 0;  // step of the polling state machine, 0..7 (session/polling_cycle.h)
    HexText SendText;            // the frame to send
    HexText ReplyText;           // the bytes received so far for the current frame
    Text LogLine;                // the line of the record under composition
    Text AddressText;            // the address as it stands in a frame, by protocol

    // Counters since they were last cleared.
    std::int32_t SendCount = 0;         // frames sent
    std::int32_t IncompleteCount = 0;   // replies that ended by time-out after some bytes
    std::int32_t NoReplyCount = 0;      // requests that ended by time-out without a byte
    std::int32_t CheckErrorCount = 0;   // replies with a bad check word
    std::int16_t SearchFoundCount = 0;  // replies seen by a search

    // The wait for a reply.
    std::int16_t RxEventCount = 0;        // events of two bytes or more since the last send; each buys a tick
    std::int16_t WaitTicks = 0;           // ticks spent waiting
    std::int16_t ReplyTimeout = 0;        // tick length in milliseconds while waiting
    std::int32_t PartialReplyLength = 0;  // length of ReplyText at the last unfinished look; read by nothing

    // The grid's rows.
    std::int16_t CurrentRow = 0;  // the row that the next single read will use
    // First row whose attribute is exactly "RW"; outlives an instrument without one.
    std::int16_t FirstDataRow = 0;

    // Kept by the native read builders between calls.
    HexText ReadFrameCommand;    // command of the last static or dynamic read
    Text ReadAttribute;          // what rows must contain to take part
    std::int16_t ReadLimit = 0;  // data bytes of a group read

    // A write in two steps is half done; each kept by its write builder between calls.
    bool SecondHalfPending = false;       // of an RTU flow meter
    bool AsciiSecondHalfPending = false;  // of an ASCII instrument

    // First static and dynamic reply since the instrument was chosen.
    HexText StaticSample;
    HexText DynamicSample;

    // The multi-instrument list; the index counts from 1, 0 before the first.
    std::int16_t MultiAddressCount = 0;
    std::vector<std::int16_t> MultiAddressList;
    std::int16_t MultiAddressIndex = 0;

    // The replay script and its cursor, from 0.
    std::vector<HexText> DemoFrames;
    std::vector<HexText> DemoReplies;
    std::vector<std::int16_t> DemoRows;
    std::int16_t DemoIndex = 0;

    // The interval timer.
    Text IntervalLastRun;  // "HH:MM"
    std::int16_t IntervalMinutes = 0;

    std::vector<std::int16_t> ProtocolCodeOfType;  // the code behind each option button of ConMeterType
    std::int16_t ShowTypeStep = 0;                 // layout step of the two panes, 0..2
    std::int32_t DelayStep = 1;                    // step of ConDelayTime's spin buttons, in milliseconds
    bool Activated = false;                        // the work of the start is done

    std::array<Timer, 3> Timer1 = {Timer(true, 1000), Timer(false, 300), Timer(false, 1000)};

    // --- Controls ---
    TextControl Caption;  // of the window
    Presence ComShow;     // blink indicator
    std::array<TextControl, 3> StatusBar1;
    TextControl StatusNote;  // a passing word to the user, beside the three panels
    OptionGroup SSTab2{0};
    FocusWish Focus;

    ListControl ConCommTypeList;  // protocol names
    OptionGroup ConMeterType;     // a button for each protocol row
    std::array<ListControl, 1> ConMeterName;
    ListControl ConDataTypeList;
    TextControl ConMeterAddr{u"1"};
    TextControl ConDataNub{u"16"};
    TextControl ConDelayTime{u"100"};             // milliseconds between two exchanges
    OptionGroup ShowMode{0};                      // 0 ASCII, 1 hexadecimal
    OptionGroup WriteType{1};                     // 0 two bytes, 1 four bytes, 2 several
    std::array<ListControl, 5> ConCommSetting;    // port, baud rate, data bits, parity, stop bits
    std::array<ListControl, 1> ConSendOutString;  // shows the frame; lists each distinct frame sent
    std::array<TextControl, 3> ConCommMessage;    // failure line, total line, both
    std::array<RecordPane, 2> ConCommString;      // 0 conversion texts, 1 the record
    RecordPane RichTextBox1;                      // shows the help text
    RecordPane RichTextBox2;                      // shows the error file
    TextControl InputText;                        // the editor in a grid cell
    std::array<Presence, 2> ClearFileCommand;
    std::array<TickControl, 2> ConAutoSave;  // 0 the record, 1 errors
    TickControl ConSaveData;
    TickControl ConSelChange;  // 停止滚屏
    TickControl ConMyCommDriver;
    TickControl Check1;  // 多台通讯
    TickControl Check2;  // 任意长度
    TickControl TimeSetup;
    std::array<Grid, 4> MSHFlexGrid1;  // parameters, catalogue, recordings, chip list

    // The search panel.
    Presence FindFrame;
    ListControl ConSettingComm;                                                         // port
    std::array<TextControl, 2> ConSettingDE = {TextControl(u"1"), TextControl(u"10")};  // first, last address
    std::array<TickControl, 8> ConSettingBT;                                            // kSearchBaudRates

    // Whether the session runs; toolbar button 4 shows the one or the other caption.
    bool IsRunning() const { return running_.Value(); }
    void SetRunning(bool running) { running_.Set(running); }
    TextView StartStopCaption() const { return IsRunning() ? texts.stop : texts.start; }
    const TickControl& RunningState() const { return running_; }

    Grid& ParameterGrid() { return MSHFlexGrid1[0]; }
    const Grid& ParameterGrid() const { return MSHFlexGrid1[0]; }
    const Protocol& ProtocolInUse() const { return protocols.Of(ProtocolCode); }

  private:
    TickControl running_;
};

}  // namespace commtest
