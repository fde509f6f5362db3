#include "window/simulator_settings.h"

#include <QStringList>
#include <array>

namespace commtest {

namespace {

constexpr TextView kPort = u"CommPort";
constexpr TextView kSoftSetting = u"SoftSeting";

// Interval, address, count, protocol, instrument, catalogue mode, with a blank between.
constexpr int kFields = 6;
constexpr std::array<int, 3> kOfTheInstrument = {1, 3, 4};

Text WithInstrumentOf(const Text& former, const Text& value) {
    const QStringList kept = QString::fromStdU16String(former).split(u' ');
    QStringList fields = QString::fromStdU16String(value).split(u' ');
    if (kept.size() != kFields || fields.size() != kFields) return former;
    for (const int field : kOfTheInstrument) fields[field] = kept[field];
    return fields.join(u' ').toStdU16String();
}

}  // namespace

void SimulatorSettings::Save(const Text& key, const Text& value) {
    const auto former = QtSettings::Read(key);
    UnsavedSettings::Save(key, value);
    if (!former) {
        QtSettings::Save(key, value);  // a default
    } else if (key == kSoftSetting) {
        QtSettings::Save(key, WithInstrumentOf(*former, value));
    } else if (key != kPort) {
        QtSettings::Save(key, value);
    }
}

}  // namespace commtest
