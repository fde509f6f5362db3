#pragma once

#include <QString>
#include <optional>

#include "cli/arguments.h"
#include "cli/catalogue_access.h"
#include "cli/console.h"
#include "host_qt/qt_serial_port.h"
#include "session/texts.h"

namespace commtest {

// Which instrument is talked to, and over which line.
struct LineOptions {
    QString folder;
    CataloguePlace catalogue;
    Text protocol;    // empty: the first of the catalogue
    Text instrument;  // empty: the first of the protocol
    Text address;
    QStringView addressOption = u"address";  // which says it
    Text port;                               // "COM1"
    DeviceMap devices;                       // names the device of that port, where the user did
    Text settings;                           // "9600,N,8,1"
    Text interval;                           // milliseconds between two exchanges
    std::optional<int> showMode;             // index of ShowMode; the protocol's own where there is none
    const Texts* words = &kChineseTexts;     // of the record and the statistics
};

inline constexpr QStringView kIntervalOptionName = u"interval";

// Where the interval has no fallback and is not given, it is the shortest that the line allows.
const OptionList& LineOptionList();
LineOptions LineOptionsOf(const Arguments& arguments, Console& console);

// The option of the port and that of its settings, for a verb that talks to no one instrument.
extern const Option kPortOption;
extern const Option kSettingsOption;
// The option of the words that the record and the statistics are in.
extern const Option kFaceOption;
const Texts& WordsOf(const Arguments& arguments);
std::optional<int> ShowModeOf(const Arguments& arguments);        // of --show
void TakePort(const Arguments& arguments, LineOptions& options);  // of --port alone
void TakePortOptions(const Arguments& arguments, LineOptions& options);

}  // namespace commtest
