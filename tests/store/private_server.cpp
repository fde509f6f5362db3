#include "store/private_server.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <memory>
#include <stdexcept>

#include "host_qt/qt_store.h"

namespace commtest::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 120000;  // ms, of a machine under load

std::unique_ptr<PrivateServer>& Instance() {
    static std::unique_ptr<PrivateServer> instance;
    return instance;
}

class EndOfServer : public ::testing::Environment {
  public:
    void TearDown() override {
        if (Instance() != nullptr) Instance()->End();
        Instance().reset();
    }
};

[[maybe_unused]] const auto* const kEnd = ::testing::AddGlobalTestEnvironment(new EndOfServer);

}  // namespace

PrivateServer& PrivateServer::OfTheProgram() {
    if (Instance() == nullptr) {
        auto server = std::make_unique<PrivateServer>();
        server->Start();
        Instance() = std::move(server);
    }
    return *Instance();
}

void PrivateServer::Start() {
    program_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    program_.start(u"python3"_s, {u"-B"_s, QStringLiteral(PRIVATE_SERVER)});
    while (!program_.canReadLine()) {
        if (!program_.waitForReadyRead(kPatience)) throw std::runtime_error("the server has not started");
    }
    const QJsonObject where = QJsonDocument::fromJson(program_.readLine()).object();
    server_ = where[u"server"_s].toString();
    user_ = where[u"user"_s].toString();
    password_ = where[u"password"_s].toString();
    database_ = where[u"database"_s].toString();
    qputenv("ODBCSYSINI", where[u"drivers"_s].toString().toUtf8());
}

void PrivateServer::End() {
    program_.closeWriteChannel();
    program_.waitForFinished(kPatience);
}

StoreAddress PrivateServer::Address(const std::vector<Text>& tables) const {
    StoreAddress address = AddressOf(user_, password_);
    address.tables = tables;
    return address;
}

StoreAddress PrivateServer::AddressOf(const QString& user, const QString& password) const {
    return AddressBy(server_, user, password);
}

StoreAddress PrivateServer::AddressOverThePort() const { return AddressBy(u"127.0.0.1"_s, user_, password_); }

StoreAddress PrivateServer::AddressBy(const QString& server, const QString& user,
                                      const QString& password) const {
    const QString text = u"driver={SQL Server};Server="_s + server + u";uid="_s + user + u";pwd="_s +
                         password + u";database="_s + database_;
    return {StoreAddress::Kind::Server, text.toStdU16String(), {}};
}

void PrivateServer::Empty() const {
    QtStore store;
    store.Open(Address());
    store.Execute(u"DROP SCHEMA public CASCADE");
    store.Execute(u"CREATE SCHEMA public");
}

}  // namespace commtest::testing
