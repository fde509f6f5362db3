#include "app/recording_words.h"

#include <gtest/gtest.h>

namespace commtest::testing {
namespace {

using Kind = RecordingFault::Kind;

TEST(RecordingWords, EachFaultHasItsWords) {
    const std::vector<std::pair<Kind, std::string>> words = {
        {Kind::NotUtf8, "不是 UTF-8 文字"},      {Kind::NoHeader, "没有文件头"},
        {Kind::NoObject, "不是一个 JSON 对象"},  {Kind::MissingMember, "缺少 \"row\""},
        {Kind::UnknownMember, "不认识 \"row\""}, {Kind::TwiceTheMember, "\"row\" 出现两次"},
        {Kind::WrongValue, "\"row\" 的值不对"},  {Kind::OtherFormat, "文件格式的版本不是 1"},
    };
    for (const auto& [kind, said] : words) EXPECT_EQ(ToUtf8(WordsOnFault({kind, 3, "row"})), said);
}

}  // namespace
}  // namespace commtest::testing
