#include "catalogue/channel_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::ListBench;
using ::testing::SizeIs;

class ChannelTableTest : public ::testing::Test, public ListBench {
  protected:
    // The lines that the template gives.
    std::vector<std::string> LinesOf(const std::vector<Text>& lines) {
        Put(kTemplateFileName, lines);
        files.TextFiles.erase(Text(kChannelTableFileName));
        GenerateChannelTable(files);
        std::vector<std::string> table;
        Text rest = files.TextFiles[Text(kChannelTableFileName)];
        for (; !rest.empty(); rest = Behind(rest, u'\n')) {
            Text line = Before(rest, u'\n');
            EXPECT_TRUE(line.ends_with(u'\r'));
            line.pop_back();
            table.push_back(ToUtf8(line));
        }
        return table;
    }
};

TEST_F(ChannelTableTest, WorkedSampleRunsOnFromRowToRowAndFromChannelToChannel) {
    const auto table = LinesOf({u"通道%小数点 2100 0 RW", u"通道%测量值 2101 * R", u"END"});
    ASSERT_THAT(table, SizeIs(64));
    EXPECT_EQ(table[0], "通道01小数点 2100 0 RW");
    EXPECT_EQ(table[1], "通道01测量值 2101 100 R");
    EXPECT_EQ(table[2], "通道02小数点 2102 0 RW");
    EXPECT_EQ(table[3], "通道02测量值 2103 102 R");
    EXPECT_EQ(table[63], "通道32测量值 213F 13E R");
}

TEST_F(ChannelTableTest, LengthDigitOfEachRowStaysAndMovesTheNextByItsHalf) {
    const auto table = LinesOf({u"A 4100 R", u"B 2000 R", u"C 8000 R"});
    EXPECT_EQ(table[0], "A 4100 R");
    EXPECT_EQ(table[1], "B 2102 R");
    EXPECT_EQ(table[2], "C 8103 R");
    EXPECT_EQ(table[3], "A 4107 R");
}

TEST_F(ChannelTableTest, WholeSumIsRoundedHalfToEven) {
    const auto table = LinesOf({u"A 1100 R"});
    EXPECT_THAT(std::vector(table.begin(), table.begin() + 4),
                ElementsAre("A 1100 R", "A 1100 R", "A 1100 R", "A 1100 R"));
    const auto odd = LinesOf({u"A 1101 R"});
    EXPECT_THAT(std::vector(odd.begin(), odd.begin() + 3), ElementsAre("A 1101 R", "A 1102 R", "A 1102 R"));
}

TEST_F(ChannelTableTest, AddressBeyondThreeDigitsKeepsItsRightEnd) {
    const auto table = LinesOf({u"A 2FFF R"});
    EXPECT_EQ(table[0], "A 2FFF R");
    EXPECT_EQ(table[1], "A 2000 R");
}

TEST_F(ChannelTableTest, AddressIsTheFirstFourDigitsWhereverTheyStand) {
    EXPECT_EQ(LinesOf({u"X2ACE% 2100 R"})[0], "X2ACE% 2100 R");
    EXPECT_EQ(ErrorOf([&] { LinesOf({u"FACE% 2100 R"}); }), 13) << "F is no length";
}

TEST_F(ChannelTableTest, LineWithoutAnAddressHasTheTextOfTheLineBeforeInFront) {
    const auto table = LinesOf({u"CH% 2100 R", u"; remark %"});
    EXPECT_EQ(table[0], "CH01 2100 R");
    EXPECT_EQ(table[1], "CH01 ; remark %");
    EXPECT_EQ(table[2], "CH02 2101 R");
    EXPECT_EQ(table[3], "CH02 ; remark %");
}

TEST_F(ChannelTableTest, FirstLineWithoutAnAddressLeavesNoRunningAddress) {
    EXPECT_EQ(ErrorOf([&] { LinesOf({u"remark", u"CH% 2100 R"}); }), 13);
}

TEST_F(ChannelTableTest, EachPercentOfTheNameIsTheNumberOfTheChannel) {
    const auto table = LinesOf({u"A%B% 2100 % R"});
    EXPECT_EQ(table[0], "A01B01 2100 % R");
    EXPECT_EQ(table[31], "A32B32 211F % R");
}

TEST_F(ChannelTableTest, StarIsTheAddressOfTheDecimalsRowOfItsChannel) {
    const auto table = LinesOf({u"PV% 2100 * R *", u"小数点% 2101 0 RW", u"SV% 2102 * R"});
    EXPECT_EQ(table[0], "PV01 2100  R *") << "nothing ahead of the first one";
    EXPECT_EQ(table[2], "SV01 2102 101 R");
    EXPECT_EQ(table[3], "PV02 2103 101 R *") << "still that of the channel before";
    EXPECT_EQ(table[5], "SV02 2105 104 R");
}

TEST_F(ChannelTableTest, TemplateEndsAtTheFirstLineThatHoldsEndInUpperCase) {
    EXPECT_THAT(LinesOf({u"A 2100 R", u"end 2200 R", u"THE END", u"B 2300 R"}), SizeIs(64));
    EXPECT_THAT(LinesOf({u"END"}), SizeIs(0));
    EXPECT_THAT(LinesOf({u"A 2100 R"}), SizeIs(32)) << "or with the file";
}

TEST_F(ChannelTableTest, OldFileGrows) {
    Put(kTemplateFileName, {u"A 2100 R"});
    Put(kChannelTableFileName, {u"旧"});
    GenerateChannelTable(files);
    EXPECT_TRUE(
        ToUtf8(files.TextFiles[Text(kChannelTableFileName)]).starts_with("旧\r\nA 2100 R\r\nA 2101 R\r\n"));
}

TEST_F(ChannelTableTest, LengthThatIsNoNumberWritesNothing) {
    EXPECT_EQ(ErrorOf([&] { LinesOf({u"OK 2100 R", u"X A100 R", u"Y 2100 R"}); }), 13);
    EXPECT_FALSE(files.TextFiles.contains(Text(kChannelTableFileName)));
}

TEST_F(ChannelTableTest, WithoutTheTemplateThereIsError53) {
    EXPECT_EQ(ErrorOf([&] { GenerateChannelTable(files); }), 53);
}

TEST_F(ChannelTableTest, LinesOfWhichTheCodePageLacksACharacterAreTold) {
    ListLines lines(
        std::make_unique<testing::BytesOfText>("\xEF\xBB\xBF"
                                               "A 2100 R\nµ 2100 R\n"));
    const ChannelTable table = ChannelTableOf(lines);
    EXPECT_EQ(table.rows, 2);
    EXPECT_THAT(table.lossyLines, ElementsAre(2));
    EXPECT_TRUE(table.bytes.starts_with("A 2100 R\r\n? 2101 R\r\n"));
}

}  // namespace
}  // namespace commtest
