#include <gtest/gtest.h>

#include <QProcess>
#include <stdexcept>

#include "catalogue/catalogue_schema.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/shipped_catalogue.h"
#include "host_qt/catalogue_store.h"
#include "store/private_server.h"

namespace commtest::testing {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPatience = 120000;  // ms, of a machine under load

// A way to the server over a port of the loopback, which counts the round trips
// (tests/support/fault_proxy.py).
class CountingWay {
  public:
    explicit CountingWay(const PrivateServer& server) {
        program_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        program_.start(u"python3"_s,
                       {u"-B"_s, QStringLiteral(FAULT_PROXY), server.Folder() + u"/.s.PGSQL.5432"_s, u"0"_s});
        port_ = NextLine();
    }
    ~CountingWay() {
        program_.closeWriteChannel();
        program_.waitForFinished(kPatience);
    }

    void Open(Store& store, const PrivateServer& server) const {
        qputenv("PGPORT", port_);
        StoreAddress address = server.AddressOverThePort();
        address.tables = CatalogueTables();
        store.Open(address);
        qunsetenv("PGPORT");
    }

    int RoundTrips() {
        program_.write("\n");
        return NextLine().toInt();
    }

  private:
    QByteArray NextLine() {
        while (!program_.canReadLine()) {
            if (!program_.waitForReadyRead(kPatience)) throw std::runtime_error("the way is closed");
        }
        return program_.readLine().trimmed();
    }

    QProcess program_;
    QByteArray port_;
};

class RoundTrips : public ::testing::Test {
  protected:
    RoundTrips() {
        server.Empty();
        QtStore filled;
        filled.Open(server.Address());
        FillWithShippedCatalogue(filled);
        way.Open(store, server);
    }

    int Of(const std::function<void()>& calls) {
        const int before = way.RoundTrips();
        calls();
        return way.RoundTrips() - before;
    }

    const PrivateServer& server = PrivateServer::OfTheProgram();
    CountingWay way{server};
    CatalogueStore store;
    InstrumentCatalogue catalogue{store};
};

TEST_F(RoundTrips, InstrumentIsChosenWithThreeAtMost) {
    EXPECT_LE(Of([&] { catalogue.ParametersOfInstrument(u"HX-D10智能数字显示控制仪"); }), 3);
    EXPECT_LE(Of([&] { catalogue.InstrumentsOfProtocol(u"TQ仪表协议"); }), 3);
}

TEST_F(RoundTrips, ListOfTheCatalogueTakesOne) {
    EXPECT_EQ(Of([&] { catalogue.CatalogueList(); }), 1);
    EXPECT_EQ(Of([&] { catalogue.RecordingsList(); }), 1);
}

TEST_F(RoundTrips, RowsOfATransactionShareThem) {
    const int trips = Of([&] {
        store.BeginTransaction();
        catalogue.AddInstrument({900, u"仪表", u"1100", u"A", u"11", u"类", std::nullopt});
        for (int row = 1; row <= 2000; ++row)
            catalogue.AddParameter({9000 + row, 900, u"名", u"01", u"2", u"R", u"0", u"", u""});
        store.Commit();
    });
    EXPECT_LE(trips, 60) << "and not two thousand";
}

}  // namespace
}  // namespace commtest::testing
