#include "host_qt/odbc_engine_name.h"

#include <QLibrary>
#include <QSqlDriver>
#include <QVariant>
#include <array>

namespace commtest {

namespace {

// SQLGetInfo of the driver manager, which the toolkit's driver has loaded; the toolkit does not hand it on.
using InformationCall = short (*)(void* connection, unsigned short kind, void* text, short size,
                                  short* length);
constexpr unsigned short kEngineName = 17;
constexpr int kManagerVersion = 2;

}  // namespace

QString OdbcEngineName(const QSqlDriver& driver) {
    const auto call = reinterpret_cast<InformationCall>(
        QLibrary::resolve(QStringLiteral("odbc"), kManagerVersion, "SQLGetInfo"));
    const QVariant handle = driver.handle();
    std::array<char, 128> name = {};
    short length = 0;
    const bool isTold = call != nullptr && handle.isValid() &&
                        call(*static_cast<void* const*>(handle.constData()), kEngineName, name.data(),
                             static_cast<short>(name.size()), &length) == 0;
    return isTold ? QString::fromUtf8(name.data()) : QStringLiteral("?");
}

}  // namespace commtest
