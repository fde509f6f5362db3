#include "catalogue/update_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "session/events.h"
#include "support/error_of.h"
#include "support/form_bench.h"

namespace commtest {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const Text kFolder = u"\\\\srv\\prog";
const Text kName = u"commtest";
const Text kServersProgram = u"\\\\srv\\prog\\commtest.EXE";
const Text kOwnProgram = u"folder/commtest";
const Text kUpdater = u"folder/通讯更新.exe";
constexpr DateTime kOwnTime = {2024, 5, 6, 12, 30, 20};

class UpdateCheck : public ::testing::Test {
  protected:
    UpdateCheck() { Offer({2024, 5, 6, 12, 31, 0}); }

    void Offer(const DateTime& offered, const DateTime& own = kOwnTime) {
        bench.program.FileTimes = {{kOwnProgram, own}, {kServersProgram, offered}};
    }
    bool IsNewer() const { return IsUpdateNewer(bench.form, kFolder, kName); }

    testing::FormBench bench;
};

// --- Which of the two is newer ---

TEST_F(UpdateCheck, WholeMinutesDecide) {
    struct Case {
        DateTime offered;
        bool isNewer;
    };
    const Case cases[] = {{{2024, 5, 6, 12, 30, 20}, false},  {{2024, 5, 6, 12, 30, 0}, false},
                          {{2024, 5, 6, 12, 30, 59}, false},  {{2024, 5, 6, 12, 31, 0}, true},
                          {{2024, 5, 6, 12, 29, 59}, false},  {{2024, 5, 6, 13, 0, 0}, true},
                          {{2024, 5, 6, 11, 59, 59}, false},  {{2024, 5, 7, 0, 0, 0}, true},
                          {{2024, 5, 5, 23, 59, 59}, false},  {{2024, 6, 1, 0, 0, 0}, true},
                          {{2024, 4, 30, 23, 59, 59}, false}, {{2025, 1, 1, 0, 0, 0}, true},
                          {{2023, 12, 31, 23, 59, 59}, false}};
    for (const Case& each : cases) {
        const DateTime& time = each.offered;
        Offer(time);
        EXPECT_EQ(IsNewer(), each.isNewer) << time.year << '-' << time.month << '-' << time.day << ' '
                                           << time.hour << ':' << time.minute << ':' << time.second;
    }
}

TEST_F(UpdateCheck, OneSecondCountsWhereItBeginsAMinute) {
    Offer({2024, 5, 6, 12, 31, 0}, {2024, 5, 6, 12, 30, 59});
    EXPECT_TRUE(IsNewer());
}

TEST_F(UpdateCheck, MissingFileOfEitherSideIsError53) {
    bench.program.FileTimes.erase(kServersProgram);
    EXPECT_EQ(ErrorOf([&] { IsNewer(); }), 53);
    bench.program.FileTimes = {{kServersProgram, kOwnTime}};
    EXPECT_EQ(ErrorOf([&] { IsNewer(); }), 53);
}

// --- The updater ---

TEST_F(UpdateCheck, UpdaterOfTheProgramFolderStartsAndTheProgramEndsWithItsStoreClosed) {
    bench.program.Programs = {kUpdater};
    EXPECT_THROW(LaunchUpdater(bench.form), ProgramEnds);
    EXPECT_THAT(bench.program.Started, ElementsAre(kUpdater));
    EXPECT_FALSE(bench.store->IsOpen());
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

TEST_F(UpdateCheck, UpdaterThatCannotBeStartedIsToldWithItsPathAndTheProgramGoesOn) {
    LaunchUpdater(bench.form);
    EXPECT_TRUE(bench.store->IsOpen());
    ASSERT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_EQ(bench.dialogs.Shown[0].notice, Notice::Kind::NoUpdater);
    EXPECT_EQ(bench.dialogs.Shown[0].detail, kUpdater);
}

// --- The offer ---

TEST_F(UpdateCheck, YesTakesTheUpdate) {
    bench.program.Programs = {kUpdater};
    EXPECT_THROW(OfferUpdate(bench.form, kFolder, kName), ProgramEnds);
    EXPECT_THAT(bench.dialogs.Texts(), ElementsAre("本软件有一个最新的版本,您需要更新吗？"));
    EXPECT_THAT(bench.program.Started, SizeIs(1));
}

TEST_F(UpdateCheck, NoLeavesEverythingAsItIs) {
    bench.program.Programs = {kUpdater};
    bench.dialogs.Answers = {u"no"};
    OfferUpdate(bench.form, kFolder, kName);
    EXPECT_THAT(bench.dialogs.Shown, SizeIs(1));
    EXPECT_THAT(bench.program.Started, IsEmpty());
    EXPECT_TRUE(bench.store->IsOpen());
}

TEST_F(UpdateCheck, ProgramAsOldAsThisOneIsNotOffered) {
    Offer(kOwnTime);
    OfferUpdate(bench.form, kFolder, kName);
    EXPECT_THAT(bench.dialogs.Shown, IsEmpty());
}

}  // namespace
}  // namespace commtest
