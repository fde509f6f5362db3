#include "host_qt/qt_settings.h"

#include <QStringList>

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString PathOf(const Text& key) { return u"SystemSetting/"_s + QString::fromStdU16String(key); }

}  // namespace

std::optional<Text> QtSettings::Read(const Text& key) const {
    const QVariant value = store_.value(PathOf(key));
    if (!value.isValid()) return std::nullopt;
    const bool isList = value.typeId() == QMetaType::QStringList;
    return (isList ? value.toStringList().join(u',') : value.toString()).toStdU16String();
}

void QtSettings::Save(const Text& key, const Text& value) {
    const QVariant wanted = QString::fromStdU16String(value);
    const bool standsThere = store_.value(PathOf(key)) == wanted && store_.status() == QSettings::NoError;
    if (standsThere) return;
    store_.setValue(PathOf(key), wanted);
    store_.sync();
}

}  // namespace commtest
