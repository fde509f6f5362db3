#include "cli/instrument_choice.h"

#include <gtest/gtest.h>

#include "cli/command_line_runner.h"
#include "host_qt/pseudo_terminal.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::Outcome;
using testing::PseudoTerminal;
using testing::RunInFolder;

struct Poll {
    const char* protocol;
    const char* instrument;
    const char* command;
    std::string frame;  // at address 10, the first of the poll
};

// Nobody answers.
std::string FirstFrameOf(const Poll& poll) {
    const PseudoTerminal line;
    const Outcome outcome =
        RunInFolder({"poll", "--protocol", QString::fromUtf8(poll.protocol), "--instrument",
                     QString::fromUtf8(poll.instrument), "--address", "10", "--command", poll.command,
                     "--port", "COM1=" + line.Device(), "--exchanges", "1"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.problems, "");
    return line.Read(poll.frame.size());
}

// No other protocol was in use before, whose address they would keep.
TEST(ChooseInstrument, ProtocolThatComposesNoAddressHasTheOneOfItsFamily) {
    for (const Poll& poll :
         {Poll{"TQ仪表协议-定制异或和", "HX-D13智能双回路显示仪", "10", "@0ARD6700\r"},
          Poll{"ModBus-Ascii协议-定制02", "HX-M23大屏显示仪", "40", ":0A030110E2\r\n"},
          Poll{"ModBus-Ascii协议-定制02", "HX-M23大屏显示仪", "60", ":0A0300100005DE\r\n"}})
        EXPECT_EQ(FirstFrameOf(poll), poll.frame);
}

TEST(ChooseInstrument, AddressThatTheProtocolDoesNotHaveIsRefused) {
    EXPECT_TRUE(
        IsProblem(RunInFolder({"poll", "--protocol", QString::fromUtf8("TQ特殊仪表协议-NOVAX"),
                               "--instrument", QString::fromUtf8("HX-N41电炉控制仪"), "--address", "128"}),
                  2, "地址 128 超出协议 \"TQ特殊仪表协议-NOVAX\" 的范围。请用 --address 另给地址"));
}

}  // namespace

}  // namespace commtest
