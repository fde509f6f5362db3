#include "catalogue/recordings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_of.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class RecordingsTest : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    static RecordedExchange Pair(const Text& instrument, const Text& note, const Text& reply,
                                 const Text& day = u"2024-05-06") {
        return {instrument, u"P", note, u"1101", day, u"6", u" 40", reply};
    }

    static std::vector<std::string> Lines(const std::vector<RecordingSummary>& summaries) {
        std::vector<std::string> lines;
        for (const RecordingSummary& one : summaries) {
            lines.push_back(
                ToUtf8(one.instrument + u"/" + one.note + u" " + one.firstDay + u" " + one.lastDay) + " " +
                std::to_string(one.exchanges) + " " + std::to_string(one.deleted));
        }
        return lines;
    }

    std::unique_ptr<Store> store = testing::MakeEmptyCatalogue(GetParam());
    Recordings recordings{*store};
};

TEST_P(RecordingsTest, SummariesCountThePairsOfAnInstrumentUnderANote) {
    recordings.Add({Pair(u"A", u"X", u" 01", u"2024-05-07"), Pair(u"A", u"X", u" 02", u"2024-05-06"),
                    Pair(u"A", u"Y", u" 03"), Pair(u"B", u"X", u" 04")});
    EXPECT_THAT(Lines(recordings.All()),
                ElementsAre("A/X 2024-05-06 2024-05-07 2 0", "A/Y 2024-05-06 2024-05-06 1 0",
                            "B/X 2024-05-06 2024-05-06 1 0"));
    EXPECT_THAT(Lines(recordings.OfInstrument(u"A")), SizeIs(2));
    EXPECT_THAT(Lines(recordings.OfNote(u"X")), SizeIs(2));
    EXPECT_THAT(Lines(recordings.Of(u"B", u"X")), SizeIs(1));
    EXPECT_THAT(recordings.Of(u"B", u"Y"), IsEmpty());
}

TEST_P(RecordingsTest, CountOfANoteTakesEachProtocolAndTellsTheDeletedOnes) {
    RecordedExchange deleted = Pair(u"A", u"X", u" 02");
    deleted.protocol = u"Q";
    deleted.isValid = false;
    recordings.Add({Pair(u"A", u"X", u" 01"), deleted, Pair(u"A", u"Y", u" 03"), Pair(u"B", u"X", u" 04")});
    EXPECT_EQ(recordings.CountOf(u"A", u"X").all, 2);
    EXPECT_EQ(recordings.CountOf(u"A", u"X").deleted, 1);
    EXPECT_EQ(recordings.CountOf(u"B", u"Y").all, 0);
}

TEST_P(RecordingsTest, NamesAndNotesHoldApostrophes) {
    recordings.Add({Pair(u"A'", u"X'; --", u" 01")});
    EXPECT_THAT(recordings.Exchanges(u"A'", u"X'; --"), SizeIs(1));
    recordings.Rename(u"A'", u"B'");
    recordings.ChangeNote(u"X'; --", u"Y'");
    recordings.SetValid(u"B'", u"Y'", false);
    EXPECT_THAT(Lines(recordings.All()), ElementsAre("B'/Y' 2024-05-06 2024-05-06 1 1"));
}

TEST_P(RecordingsTest, ExchangesComeInTheOrderInWhichTheyWereStored) {
    RecordedExchange deleted = Pair(u"A", u"X", u" 01");
    deleted.isValid = false;
    recordings.Add({Pair(u"A", u"X", u" 02"), deleted});
    const std::vector<RecordedExchange> exchanges = recordings.Exchanges(u"A", u"X");
    ASSERT_THAT(exchanges, SizeIs(2));
    EXPECT_EQ(exchanges[0].reply, u" 02");
    EXPECT_TRUE(exchanges[0].isValid);
    EXPECT_EQ(exchanges[0].protocol, u"P");
    EXPECT_EQ(exchanges[0].code, u"1101");
    EXPECT_EQ(exchanges[0].day, u"2024-05-06");
    EXPECT_EQ(exchanges[0].row, u"6");
    EXPECT_EQ(exchanges[0].request, u" 40");
    EXPECT_EQ(exchanges[1].reply, u" 01");
    EXPECT_FALSE(exchanges[1].isValid);
}

TEST_P(RecordingsTest, DeletedOnesComeBack) {
    recordings.Add({Pair(u"A", u"X", u" 01"), Pair(u"A", u"Y", u" 01")});
    recordings.SetValid(u"A", u"X", false);
    EXPECT_THAT(Lines(recordings.All()),
                ElementsAre("A/X 2024-05-06 2024-05-06 1 1", "A/Y 2024-05-06 2024-05-06 1 0"));
    recordings.SetValid(u"A", u"X", true);
    EXPECT_EQ(recordings.Of(u"A", u"X").at(0).deleted, 0);
}

TEST_P(RecordingsTest, NothingIsAddedWhereOneCannotBe) {
    store->Execute(u"CREATE UNIQUE INDEX one_reply ON 通讯_仿真 (回送)");
    EXPECT_NE(testing::ErrorOf([this] {
                  recordings.Add({Pair(u"A", u"X", u" 01"), Pair(u"A", u"X", u" 01")});
              }),
              0);
    EXPECT_THAT(recordings.All(), IsEmpty());
    recordings.Add({Pair(u"A", u"X", u" 01")});
    EXPECT_THAT(recordings.All(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(Each, RecordingsTest, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
