#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "catalogue/catalogue_backup.h"
#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/parameter_list_import.h"
#include "catalogue/shipped_catalogue.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "runtime/runtime_error.h"
#include "store/private_server.h"
#include "support/bytes_of_text.h"

namespace commtest {
namespace {

using testing::BytesOfText;
using ::testing::ElementsAre;
using testing::PrivateServer;
using ::testing::UnorderedElementsAreArray;

// Two programs on one server.
class SharedCatalogue : public ::testing::Test {
  protected:
    SharedCatalogue() {
        server.Empty();
        one.Open(server.Address());
        FillWithShippedCatalogue(one);
        other.Open(server.Address());
    }

    static std::unique_ptr<BytesOfText> List() {
        return std::make_unique<BytesOfText>(
            "DEVICE METER\r\nTYPE 11000101\r\n1 TEMP 2010 1 RW 0 100\r\nEND\r\nDEVICE   END\r\n");
    }

    std::vector<std::string> Instruments() {
        const StoreRows rows = InstrumentCatalogue(other).InstrumentsOfProtocol(u"TQ仪表协议");
        std::vector<std::string> names;
        for (std::size_t row = 0; row < rows.rows.size(); ++row) names.push_back(ToUtf8(rows.At(row, 0)));
        return names;
    }

    const PrivateServer& server = PrivateServer::OfTheProgram();
    CatalogueStore one;
    CatalogueStore other;
};

TEST_F(SharedCatalogue, WhatOneImportsTheOtherSeesAtItsNextSelectionOnceItIsComplete) {
    const std::vector<std::string> before = Instruments();
    ASSERT_FALSE(before.empty());
    ParameterListImport import(one, List());
    while (import.Step()) {
        EXPECT_EQ(Instruments(), before);
    }
    EXPECT_EQ(Instruments(), before);
    import.Commit();
    EXPECT_THAT(Instruments(), ElementsAre("METER"));
}

TEST_F(SharedCatalogue, SecondImportIsRefusedAtOnceUntilTheFirstHasEnded) {
    {
        ParameterListImport first(one, List());
        try {
            const ParameterListImport second(other, List());
            ADD_FAILURE() << "not refused";
        } catch (const RewrittenElsewhere& error) {
            EXPECT_EQ(ToUtf8(error.Message()), "另一个程序正在改写服务器上的目录，请等它结束后再试");
        }
        EXPECT_FALSE(Instruments().empty()) << "who was refused goes on";
    }
    const ParameterListImport third(other, List());
}

TEST_F(SharedCatalogue, ServersCatalogueIsKeptAsAFileAndRestoredFromIt) {
    const QTemporaryDir folder;
    FolderFiles files(folder.path());
    InstrumentCatalogue catalogue(one);
    const auto parameters = catalogue.AllParameters().rows;
    const Text copy = BackUpCatalogue(one, files, {2024, 5, 6, 7, 8, 9});
    catalogue.ClearCatalogue();
    RestoreCatalogue(one, files, copy);
    EXPECT_THAT(catalogue.AllParameters().rows, UnorderedElementsAreArray(parameters));
    EXPECT_FALSE(parameters.empty());
}

TEST_F(SharedCatalogue, RecordingsAreAddedBesideAnImport) {
    ParameterListImport import(one, List());
    while (import.Step()) {
    }
    EXPECT_EQ(InstrumentCatalogue(one).Size().parameters, 1) << "its rows have gone out";
    const PatienceScope patience(other, Patience::Capture);
    RecordedExchange exchange;
    exchange.instrument = u"A";
    exchange.note = u"N";
    exchange.reply = u" 01";
    MakeMissingIndexes(other);
    InstrumentCatalogue(other).AddRecordedExchange(exchange);
    EXPECT_EQ(InstrumentCatalogue(other).RecordedPair(u"A", u" 01", u"N").rows.size(), 1U);
}

}  // namespace
}  // namespace commtest
