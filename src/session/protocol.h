#pragma once

#include <vector>

#include "runtime/hex_text.h"
#include "runtime/text.h"

namespace commtest {

class MainForm;

enum class DisplayMode { Unchanged, Ascii, Hexadecimal };  // ShowMode chosen with the protocol

// Which right-mouse menu the parameter grid brings: 指令设定1 to 4.
enum class OperationMenu { None, Native, Modbus, Recorder, FlowMeter };

// One protocol: all that the session has to know of it. A null routine means that the protocol has none.
struct Protocol {
    int code = 0;
    TextView name;
    void (*buildRead)(MainForm&) = nullptr;              // fills SendText for the next poll
    void (*buildWrite)(MainForm&) = nullptr;             // fills SendText from InputText and the current row
    bool (*replyIsComplete)(const MainForm&) = nullptr;  // judges ReplyText; none: never complete
    bool continuesOnLineFeed = false;  // a reply with byte 0A is one part of a longer answer
    void (*parseReply)(MainForm&) = nullptr;
    DisplayMode displayMode = DisplayMode::Unchanged;
    OperationMenu menu = OperationMenu::None;
    void (*composeAddress)(MainForm&) = nullptr;                    // AddressText from ConMeterAddr
    void (*showFrameAddress)(MainForm&, const HexText&) = nullptr;  // ConMeterAddr from a recorded frame
    void (*appendCheckWord)(HexText&) = nullptr;
    bool checkWordIsThatOfAWrite = false;  // MakeCRCWord builds the write frame of the current row instead

    // Whether instruments of this protocol can be polled: it is known, and its family is built.
    bool IsBuilt() const { return code != 0 && buildRead != nullptr; }
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
