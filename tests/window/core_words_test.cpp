#include "window/core_words.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include "app/finding_words.h"
#include "app/recording_words.h"
#include "window/list_words.h"
#include "window/pieces.h"
#include "window/spoken_words.h"

namespace commtest::testing {
namespace {

bool IsChinese(const QString& words) {
    static const QRegularExpression kHan(QString::fromUtf8("[\\x{4e00}-\\x{9fff}]"));
    return QString(words).remove("TQ仪表协议").contains(kHan);
}

class CoreWords : public ::testing::Test {
  protected:
    SpokenWords english{*FindFace(u"english")};

    static void ExpectTranslated(TextView words) {
        EXPECT_FALSE(IsChinese(Translated(words))) << ToUtf8(Text(words));
    }
};

TEST_F(CoreWords, OfEachFindingInAListAreEnglish) {
    for (int kind = 0; kind <= static_cast<int>(ListFinding::Kind::IsUtf16); ++kind) {
        const auto found = static_cast<ListFinding::Kind>(kind);
        for (const TextView words : {HeadOf(found), PatternOf(found), OutcomeOf(found)})
            ExpectTranslated(words);
    }
}

TEST_F(CoreWords, OfEachFaultOfARecordingFileAreEnglish) {
    for (int kind = 0; kind <= static_cast<int>(RecordingFault::Kind::OtherFormat); ++kind)
        ExpectTranslated(PatternOf(static_cast<RecordingFault::Kind>(kind)));
}

TEST_F(CoreWords, AreFilledIn) {
    const ListFinding finding = {.kind = ListFinding::Kind::NoAddress, .line = 7, .name = u"给定值"};
    EXPECT_EQ(WordsOn(finding).toStdString(), "\"给定值\" has no address");
}

}  // namespace
}  // namespace commtest::testing
