#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "controls/grid.h"
#include "controls/value_controls.h"
#include "runtime/hex_text.h"
#include "session/command_code.h"
#include "session/grid_rows.h"
#include "session/switches.h"

namespace commtest {

// The parts of MainForm that the protocols work on. None of them knows a port, a store, a timer or the
// record: a frame is built, and a reply shared out, without a session.

// Who is talked to.
struct InstrumentInUse {
    // Which protocol is in use; re-read from MeterCodeText before each routing.
    std::int16_t ProtocolCode = 0;
    Text MeterCodeText;  // 编号 of the chosen instrument; its first two characters: ProtocolCode
    Text AddressText;    // the address as it stands in a frame, by protocol
    std::array<ListControl, 1> ConMeterName;
    TextControl ConMeterAddr{u"1"};

    ListControl& InstrumentList() { return ConMeterName[0]; }
    const ListControl& InstrumentList() const { return ConMeterName[0]; }
    const Text& InstrumentName() const { return ConMeterName[0].Value(); }
};

// What goes over the line.
struct Frames {
    HexText SendText;            // the frame to send
    HexText ReplyText;           // the bytes received so far for the current frame
    std::int32_t SendCount = 0;  // frames sent since the counters were last cleared
};

// What the catalogue says a parameter may be, in the instrument's digits: an empty one bounds nothing.
struct ParameterLimits {
    Text lower;
    Text upper;
};

// The parameters and the row that is read.
struct ParameterRows {
    std::array<Grid, 4> MSHFlexGrid1;  // parameters, catalogue, recordings, chip list
    std::int16_t CurrentRow = 0;       // the row that the next single read will use
    // First row whose attribute is exactly "RW"; outlives an instrument without one (Q177).
    std::int16_t FirstDataRow = 0;
    TickControl ConSelChange;             // 停止滚屏
    std::vector<ParameterLimits> Limits;  // by row, from 0; none of row 0
    RowSet FilledRows;                    // that the reply in hand has filled so far

    Grid& ParameterGrid() { return MSHFlexGrid1[0]; }
    const Grid& ParameterGrid() const { return MSHFlexGrid1[0]; }
};

// What the user asks for.
struct Operation {
    std::int32_t CommandCode = command::kReadDynamicTurn;  // which operation each cycle performs
    TextControl ConDataNub{u"16"};                         // bytes or parameters of one read
    TickControl Check2;                                    // 任意长度
    OptionGroup WriteType{1};                              // 0 two bytes, 1 four bytes, 2 several
    TextControl InputText;                                 // the editor in a grid cell
};

// Kept by the native read builders between calls.
struct NativeReads {
    HexText ReadFrameCommand;    // command of the last static or dynamic read
    Text ReadAttribute;          // what rows must contain to take part
    std::int16_t ReadLimit = 0;  // data bytes of a group read

    // First static and dynamic reply since the instrument was chosen.
    HexText StaticSample;
    HexText DynamicSample;
};

// A write in two steps is half done; each kept by its write builder between calls.
struct HalfWrites {
    bool SecondHalfPending = false;       // of an RTU flow meter
    bool AsciiSecondHalfPending = false;  // of an ASCII instrument
};

struct Conversation : InstrumentInUse, Frames, ParameterRows, Operation, NativeReads, HalfWrites {
    Switches switches;  // of the face
};

}  // namespace commtest
