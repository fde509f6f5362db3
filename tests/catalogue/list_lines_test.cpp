#include "catalogue/list_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "list_bench.h"
#include "support/error_of.h"

namespace commtest {
namespace {

using testing::BytesOfText;
using ::testing::ElementsAre;

ListLines LinesOf(const std::string& bytes, std::size_t piece = 1 << 20) {
    return ListLines(std::make_unique<BytesOfText>(bytes, piece));
}

std::vector<std::string> AllOf(ListLines lines) {
    std::vector<std::string> all;
    for (auto line = lines.Next(); line; line = lines.Next()) all.push_back(ToUtf8(*line));
    return all;
}

// The line that cannot be read, and why.
struct Unreadable {
    UnreadableLine::Reason why;
    int line;
    bool operator==(const Unreadable&) const = default;
};

Unreadable UnreadableOf(ListLines lines) {
    try {
        while (lines.Next()) {
        }
    } catch (const UnreadableLine& line) {
        EXPECT_EQ(line.Number(), 52);
        return {line.Why(), line.Line()};
    }
    ADD_FAILURE() << "every line can be read";
    return {};
}

TEST(ListLines, EndAtLineFeedsWithOrWithoutACarriageReturn) {
    EXPECT_THAT(AllOf(LinesOf("a\r\nb\n\nc")), ElementsAre("a", "b", "", "c"));
    EXPECT_THAT(AllOf(LinesOf("a\r\n")), ElementsAre("a"));
    EXPECT_THAT(AllOf(LinesOf("")), ElementsAre());
}

TEST(ListLines, AreTheSameInWhateverPiecesTheFileComes) {
    for (const std::size_t piece : {1, 2, 3, 7}) {
        EXPECT_THAT(AllOf(LinesOf("\xEF\xBB\xBF"
                                  "ab\r\ncd\r\n\r\nef",
                                  piece)),
                    ElementsAre("ab", "cd", "", "ef"));
    }
}

TEST(ListLines, AreCodePage936WithoutAMarkThoughTheyCouldBeUtf8) {
    EXPECT_THAT(AllOf(LinesOf("\xCE\xC2\xB6\xC8")), ElementsAre("温度"));
    // UTF-8 of 温, read as two-byte characters, leaves a byte over.
    EXPECT_THAT(AllOf(LinesOf("\xE6\xB8\xA9")), ElementsAre("娓\uFFFD"));
}

TEST(ListLines, AreUtf8WithAMarkThatDoesNotCount) {
    ListLines lines = LinesOf("\xEF\xBB\xBF\xE6\xB8\xA9\n");
    EXPECT_TRUE(lines.IsUtf8());
    EXPECT_EQ(ToUtf8(*lines.Next()), "温");
}

TEST(ListLines, MarkInFrontOfInvalidUtf8IsDropped) {
    ListLines lines = LinesOf("\xEF\xBB\xBFPV\n\xCE\xC2\xB6\xC8\n");
    EXPECT_FALSE(lines.IsUtf8());
    EXPECT_THAT(AllOf(std::move(lines)), ElementsAre("PV", "温度"));
}

TEST(ListLines, CountFromOneAndGiveTheirBytes) {
    ListLines lines = LinesOf("ab\r\n\xCE\xC2\r\n");
    lines.Next();
    EXPECT_EQ(lines.Line(), 1);
    lines.Next();
    EXPECT_EQ(lines.Line(), 2);
    EXPECT_EQ(lines.Bytes(), "\xCE\xC2");
    EXPECT_EQ(lines.BytesRead(), 8U);
    EXPECT_EQ(lines.Size(), 8U);
}

TEST(ListLines, BeginAnew) {
    ListLines lines = LinesOf(
        "\xEF\xBB\xBF"
        "a\nb\n");
    lines.Next();
    lines.Next();
    lines.Rewind();
    EXPECT_EQ(lines.Line(), 0);
    EXPECT_EQ(ToUtf8(*lines.Next()), "a");
}

TEST(ListLines, LineOf64KilobytesIsReadAndALongerOneRefused) {
    constexpr std::size_t k64 = 65536;
    EXPECT_EQ(AllOf(LinesOf(std::string(k64, 'x') + "\r\n")).at(0).size(), k64);
    EXPECT_EQ(UnreadableOf(LinesOf("a\n" + std::string(k64 + 1, 'x') + "\r\n")),
              (Unreadable{UnreadableLine::Reason::TooLong, 2}));
}

TEST(ListLines, EndlessLineIsRefusedWithoutBeingHeld) {
    EXPECT_EQ(UnreadableOf(LinesOf(std::string(10'000'000, 'x'), 4096)),
              (Unreadable{UnreadableLine::Reason::TooLong, 1}));
}

TEST(ListLines, NulIsRefusedWithItsLine) {
    EXPECT_EQ(UnreadableOf(LinesOf(std::string("a\nb\0c\n", 6))),
              (Unreadable{UnreadableLine::Reason::HoldsNul, 2}));
}

TEST(ListLines, Utf16IsRefusedByItsMark) {
    EXPECT_EQ(UnreadableOf(LinesOf(std::string("\xFF\xFE"
                                               "D\0",
                                               4))),
              (Unreadable{UnreadableLine::Reason::IsUtf16, 1}));
    EXPECT_EQ(UnreadableOf(LinesOf(std::string("\xFE\xFF\0D", 4))),
              (Unreadable{UnreadableLine::Reason::IsUtf16, 1}));
}

}  // namespace
}  // namespace commtest
