#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "host/clock.h"
#include "host/dialogs.h"
#include "runtime/number.h"
#include "session/conversation.h"
#include "session/grid_rows.h"
#include "session/protocol.h"
#include "session/texts.h"
#include "support/frame_text.h"
#include "support/test_parameter.h"

namespace commtest::testing {

// A clock that stands; its random numbers come in turn, over and over.
class StandingClock : public Clock {
  public:
    std::vector<double> RandomNumbers = {0.5};

    DateTime Now() const override { return {}; }
    std::int64_t Microseconds() const override { return 0; }
    void Sleep(std::int32_t) override {}
    double Random() override { return RandomNumbers[next_++ % RandomNumbers.size()]; }

  private:
    std::size_t next_ = 0;
};

// Notes the messages of the builders; they have no other box to show.
class NotingDialogs : public Dialogs {
  public:
    std::vector<std::string> Messages;
    int OtherBoxes = 0;

    bool HaveShownNothing() const { return Messages.empty() && OtherBoxes == 0; }

    void ShowMessage(const Text& text, const Text&) override { Messages.push_back(ToUtf8(text)); }
    void ShowNotice(const Notice&) override { ++OtherBoxes; }
    void ShowError(int, const Text&) override { ++OtherBoxes; }
    bool AskYesNo(const Text&) override { return ++OtherBoxes != 0; }
    Text AskText(const Text&, const Text&, const Text& proposal) override {
        ++OtherBoxes;
        return proposal;
    }
};

// A row of a family's table.
inline Protocol RowOf(const std::vector<Protocol>& family, int code) {
    return *std::find_if(family.begin(), family.end(), [&](const Protocol& row) { return row.code == code; });
}

// An instrument of a protocol, talked to without a session: no port, no timer, no store, no record. Its
// parameters stand in the grid behind five commands, as the choice of an instrument lays them out.
class ConversationBench {
  public:
    ConversationBench(Protocol protocol, const std::vector<TestParameter>& parameters)
        : protocol_(std::move(protocol)) {
        talk_.ProtocolCode = Whole16(protocol_.code);
        talk_.MeterCodeText = WholeText(protocol_.code) + u"0100";
        talk_.ConMeterName[0].Set(u"仪表");
        LayOut(BehindFiveCommands(parameters));
    }

    Conversation& Talk() { return talk_; }
    const Protocol& Row() const { return protocol_; }

    Grid& Rows() { return talk_.ParameterGrid(); }
    void SetCell(int row, int col, const Text& text) { Rows().SetCell(row, col, text); }
    std::string Cell(int row, int col) { return ToUtf8(Rows().Cell(row, col)); }

    // The frame that stands ready, in characters.
    std::string Frame() const { return CharactersOf(talk_.SendText); }

    // The frame of the next poll under a command code, in characters.
    std::string Poll(std::int32_t commandCode) {
        BuildRead(commandCode);
        return Frame();
    }
    void BuildRead(std::int32_t commandCode) {
        talk_.CommandCode = commandCode;
        protocol_.buildRead(talk_, clock);
    }

    // The frame of an entry in column 10 of a row.
    void BuildWrite(int row, const Text& entry) {
        Rows().Select(row, column::kNewValue);
        talk_.InputText.Set(entry);
        protocol_.buildWrite(talk_, dialogs);
    }

    StandingClock clock;
    NotingDialogs dialogs;

  private:
    void LayOut(const std::vector<TestParameter>& parameters) {
        constexpr int kFewestRows = 15;
        const int count = static_cast<int>(parameters.size());
        Rows().SetSize(std::max(count + 1, kFewestRows), column::kCount);
        for (int row = 1; row <= count; ++row) {
            const TestParameter& parameter = parameters[static_cast<std::size_t>(row) - 1];
            SetCell(row, column::kName, parameter.name);
            SetCell(row, column::kAddress, parameter.address);
            SetCell(row, column::kLength, parameter.length);
            SetCell(row, column::kAttribute, parameter.attribute);
            SetCell(row, column::kDecimals, parameter.decimals);
        }
        SetUpParameterGrid(talk_, kChineseTexts.parameterHeadings);
    }

    Protocol protocol_;
    Conversation talk_;
};

}  // namespace commtest::testing
