#pragma once

#include <QProcess>
#include <QString>

#include "host/store.h"

namespace commtest::testing {

// A PostgreSQL of its own (tests/support/private_server.py), started at the first use in a test program and
// ended with it, however it ends. The driver alias of the connection string leads to it.
class PrivateServer {
  public:
    static PrivateServer& OfTheProgram();

    // The connection string as the program makes it of Setup.ini.
    StoreAddress Address(const std::vector<Text>& tables = {}) const;
    StoreAddress AddressOf(const QString& user, const QString& password) const;

    // The same by a port of the loopback, which the environment names.
    StoreAddress AddressOverThePort() const;

    // Takes everything out of the database.
    void Empty() const;

    void End();

    const QString& Folder() const { return server_; }
    const QString& Database() const { return database_; }

  private:
    void Start();
    StoreAddress AddressBy(const QString& server, const QString& user, const QString& password) const;

    QProcess program_;
    QString server_;
    QString user_;
    QString password_;
    QString database_;
};

}  // namespace commtest::testing
