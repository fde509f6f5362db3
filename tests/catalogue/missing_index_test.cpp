#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/catalogue_schema.h"
#include "catalogue/recordings.h"
#include "support/stores_under_test.h"

namespace commtest {
namespace {

using ::testing::Contains;
using ::testing::Not;

class MissingIndex : public ::testing::TestWithParam<testing::StoreUnderTest> {
  protected:
    std::vector<std::string> Indexes() const {
        const bool isFile = store->Engine() == StoreEngine::Sqlite;
        const StoreRows rows =
            store->Query(isFile ? u"SELECT name FROM sqlite_master WHERE type = 'index'"
                                : u"SELECT indexname FROM pg_indexes WHERE schemaname = 'public'");
        std::vector<std::string> names;
        for (std::size_t row = 0; row < rows.rows.size(); ++row) names.push_back(ToUtf8(rows.At(row, 0)));
        return names;
    }

    void Lack(const Text& index) const { store->Execute(u"DROP INDEX " + index); }

    std::unique_ptr<Store> store = testing::MakeEmptyCatalogue(GetParam());
};

TEST_P(MissingIndex, IsMadeAtTheFirstWrite) {
    Lack(u"recordings_by_instrument");
    Recordings recordings(*store);
    EXPECT_THAT(Indexes(), Not(Contains("recordings_by_instrument")));
    recordings.Add({RecordedExchange()});
    EXPECT_THAT(Indexes(), Contains("recordings_by_instrument"));
}

TEST_P(MissingIndex, ThatCannotBeMadeIsPassedOver) {
    Lack(u"chips_by_code");
    store->Execute(u"DROP TABLE 仪表_芯片");
    Lack(u"recordings_by_protocol");
    EXPECT_NO_THROW(MakeMissingIndexes(*store));
    EXPECT_THAT(Indexes(), Contains("recordings_by_protocol"));
}

INSTANTIATE_TEST_SUITE_P(Each, MissingIndex, ::testing::ValuesIn(testing::StoresUnderTest()),
                         testing::kNameOfStore);

}  // namespace
}  // namespace commtest
