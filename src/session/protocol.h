#pragma once

#include <optional>
#include <vector>

#include "runtime/hex_text.h"
#include "runtime/text.h"
#include "session/exchange.h"

namespace commtest {

class Clock;
class Dialogs;
class MainForm;
struct Conversation;
struct Texts;

enum class DisplayMode { Unchanged, Ascii, Hexadecimal };  // ShowMode chosen with the protocol

// Which right-mouse menu the parameter grid brings: 指令设定1 to 4.
enum class OperationMenu { None, Native, Modbus, Recorder, FlowMeter };

// Why a single read does not reach a row.
enum class Unreadable {
    No,              // it does
    Command,         // the row is a command
    BeforeFirstRow,  // it stands before the first "RW" row
    NoReadAttribute,
    Fixed,  // one of the rows 1 to 5
};

// How single rows are read and written back: what there is to know beyond the frames. A protocol without
// writes needs no more than its first row.
struct RowManner {
    std::int16_t (*firstRow)(const Conversation&) = nullptr;  // where reading row by row begins
    Unreadable (*whyUnreadable)(const Conversation&, int row) = nullptr;
    int (*decimalsRow)(const Conversation&, int row) = nullptr;  // that holds a row's decimals, 0: its own
    // Whether the value shown is a constant, whatever was read; none: never.
    bool (*showsConstant)(const Conversation&, int row) = nullptr;

    // The code text that an entry becomes in a write frame, the value that is shown for a code that was read,
    // and a number in the instrument's digits with the row's decimals. Errors of the builder, or of the
    // decoding.
    Text (*codeOf)(const Conversation&, int row, const Text& entry) = nullptr;
    Text (*valueOf)(const Conversation&, int row, const Text& code) = nullptr;
    Text (*withDecimals)(const Conversation&, int row, const Text& digits) = nullptr;

    // The number format of a row (numbers/register_codecs.h) and an entry in the digits that it encodes; none
    // where the codes of the family have no format. Errors as above.
    int (*formatOf)(const Conversation&, int row) = nullptr;
    Text (*digitsOf)(const Conversation&, int row, const Text& entry) = nullptr;
};

// One protocol: all that the session has to know of it. A null routine means that the protocol has none.
struct Protocol {
    int code = 0;
    TextView name;

    // The requests: what fills SendText, for the next poll and from InputText and the current row.
    void (*buildRead)(Conversation&, Clock&) = nullptr;
    void (*buildWrite)(Conversation&, Dialogs&) = nullptr;

    // The reply: has it come to its end, what is it worth, what is said of it, and where its data go.
    bool (*replyIsComplete)(const HexText& reply, const HexText& request) = nullptr;
    bool continuesOnLineFeed = false;  // a reply with byte 0A is one part of a longer answer
    Verdict (*judge)(const Exchange&) = nullptr;
    Text (*words)(const Exchange&, const Verdict&, const Texts&) = nullptr;
    void (*decode)(Conversation&, const HexText& reply) = nullptr;
    bool countsWrongCheckWords = true;
    bool stepsOverSilentRows = false;  // a poll row by row goes on over a silent instrument

    DisplayMode displayMode = DisplayMode::Unchanged;
    OperationMenu menu = OperationMenu::None;
    void (*composeAddress)(Conversation&) = nullptr;  // AddressText from ConMeterAddr
    // Of a protocol without composeAddress: the form of AddressText that it takes over from another one. Only
    // for a face that knows a single protocol.
    void (*composeBorrowedAddress)(Conversation&) = nullptr;
    void (*showFrameAddress)(Conversation&, const HexText&) = nullptr;  // ConMeterAddr from a recorded frame
    std::optional<int> (*addressOfReply)(const HexText& reply) = nullptr;  // of one whose check word is right
    void (*appendCheckWord)(HexText&) = nullptr;
    bool checkWordIsThatOfAWrite = false;  // MakeCRCWord builds the write frame of the current row instead
    RowManner rows;

    bool IsKnown() const { return code != 0; }  // it has a row
};

// The rows stand in app/protocol_table.cpp.
struct ProtocolTable {
    std::vector<Protocol> rows;
    Protocol defaultRow;  // for every code without a row

    const Protocol& Of(int code) const;
};

// Appends the check word of the protocol in use; a code without one only gets the leading blank. Where the
// check word is that of a write, the frame gets no more than the blank, and SendText the write. Errors of the
// builder.
void MakeCRCWord(MainForm& form, HexText& frame);

}  // namespace commtest
