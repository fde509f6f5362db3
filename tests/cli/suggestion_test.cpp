#include "cli/suggestion.h"

#include <gtest/gtest.h>

namespace commtest {

namespace {

QString Meant(const char* word) {
    return DidYouMean(QString::fromUtf8(word),
                      {QStringLiteral("poll"), QStringLiteral("capture"), QStringLiteral("exchanges"),
                       QString::fromUtf8("HX-D10智能数字显示控制仪")});
}

QString Suggested(const char* word) {
    return QString::fromUtf8("，是不是 \"%1\"？").arg(QString::fromUtf8(word));
}

TEST(DidYouMean, NearestKnownWordIsOffered) {
    EXPECT_EQ(Meant("pol"), Suggested("poll"));
    EXPECT_EQ(Meant("opll"), Suggested("poll"));
    EXPECT_EQ(Meant("POLL"), Suggested("poll"));
    EXPECT_EQ(Meant("captrue"), Suggested("capture"));
    EXPECT_EQ(Meant("exchange"), Suggested("exchanges"));
    EXPECT_EQ(Meant("HX-D11智能数字显示控制仪"), Suggested("HX-D10智能数字显示控制仪"));
}

TEST(DidYouMean, NothingIsOfferedForAnotherWord) {
    for (const char* word : {"", "x", "dance", "colour", "paul-and-mary"})
        EXPECT_EQ(Meant(word), QString()) << word;
}

}  // namespace

}  // namespace commtest
