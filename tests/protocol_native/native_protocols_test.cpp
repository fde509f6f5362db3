#include "protocol_native/native_protocols.h"

#include <gtest/gtest.h>

#include "protocol_native/check_words.h"
#include "protocol_native/instrument_bench.h"
#include "protocol_native/read_requests.h"
#include "protocol_native/reply_parser.h"
#include "protocol_native/write_requests.h"
#include "session/operation_menus.h"

namespace commtest {
namespace {

using testing::InstrumentBench;
using testing::TestParameter;

const std::vector<TestParameter> kArbitraryParameters = {{u"上限", u"0020", u"2", u"RW", u"0"}};

TEST(NativeProtocols, EachCodeHasItsRoutines) {
    struct Row {
        int code;
        void (*buildRead)(MainForm&);
        void (*buildWrite)(MainForm&);
        void (*appendCheckWord)(HexText&);
    };
    const Row rows[] = {{11, BuildTqReadRequest, BuildTqWriteRequest, MakeCRCWordTq},
                        {12, BuildTqGroupReadRequest, BuildTqWriteRequestTwo, MakeCRCWordTqTwo},
                        {13, BuildTqReadRequest, nullptr, MakeCRCWordTq}};
    const std::vector<Protocol> family = NativeProtocols();
    ASSERT_EQ(family.size(), std::size(rows));
    for (std::size_t i = 0; i < family.size(); ++i) {
        EXPECT_EQ(family[i].code, rows[i].code);
        EXPECT_EQ(family[i].buildRead, rows[i].buildRead) << rows[i].code;
        EXPECT_EQ(family[i].buildWrite, rows[i].buildWrite) << rows[i].code;
        EXPECT_EQ(family[i].appendCheckWord, rows[i].appendCheckWord) << rows[i].code;
        EXPECT_EQ(family[i].parseReply, ParseTqReply) << rows[i].code;
    }
}

TEST(NativeProtocols, ChoosingOneShowsFramesAsCharactersAndBringsMenu1) {
    for (const int code : {11, 12, 13}) {
        InstrumentBench bench(code, kArbitraryParameters);
        bench.Form().ShowMode.Show(1);
        bench.Choose(Text(bench.Form().protocols.Of(code).name), u"仪表");
        EXPECT_TRUE(bench.Form().ShowMode.IsChosen(0)) << code;
        EXPECT_EQ(bench.Form().ProtocolCode, code);
        EXPECT_EQ(MenuOfProtocol(bench.Form()), 1) << code;
    }
}

TEST(NativeProtocols, ReplayShowsTheAddressOfARecordedFrameExceptUnderCode13) {
    struct Row {
        int code;
        const char* address;
    };
    for (const Row& row : {Row{11, "10"}, Row{12, "10"}, Row{13, "1"}}) {
        InstrumentBench bench(row.code, kArbitraryParameters);
        bench.Form().DemoFrames = {u" 40 30 41 52 44 36 37 0D"};
        EXPECT_EQ(bench.Poll(10031), "@0ARD67\r");
        EXPECT_EQ(ToUtf8(bench.Form().ConMeterAddr.Value()), row.address) << row.code;
    }
}

}  // namespace
}  // namespace commtest
