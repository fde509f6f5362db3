#include "cli/line_options.h"

#include <algorithm>

#include "host_qt/line_settings.h"
#include "host_qt/named_port.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestAddress = 65535;
constexpr int kLongestInterval = 3'600'000;  // milliseconds
// The wait for a reply, 150000 ms divided by the baud rate, has to stay inside 16 bits.
constexpr int kLowestBaudRate = 50;

Text Number(int number) { return QString::number(number).toStdU16String(); }

// A device alone is the first port.
QString WithNumber(const QString& port) { return port.startsWith(u'/') ? u"COM1="_s + port : port; }

Text SettingsOf(const Arguments& arguments) {
    const Text settings = arguments.Value(u"settings").toUpper().toStdU16String();
    const auto parsed = LineSettingsOf(settings);
    if (!parsed || parsed->baudRate < kLowestBaudRate) {
        throw arguments.BadValue(u"settings",
                                 u" 9600,N,8,1 的形式 (波特率,校验 N/O/E,数据位 5 至 8,停止位 1/1.5/2)"_s);
    }
    return settings;
}

// What parts one frame from the next on a line of instruments: three and a half characters of eleven bits,
// and no less than 2 ms.
int ShortestInterval(const Text& settings) {
    constexpr int kShortest = 2;
    constexpr int kBitsAndMilliseconds = 38'500;
    const int baudRate = LineSettingsOf(settings)->baudRate;
    return std::max(kShortest, (kBitsAndMilliseconds + baudRate - 1) / baudRate);
}

}  // namespace

const Option kPortOption = {u"port", u"COM1[=设备]|设备",
                            u"串口，见 list ports；不写设备时 COM1 为本机第 1 个串口 (USB 在前)", u"COM1"};
const Option kSettingsOption = {u"settings", u"9600,N,8,1", u"波特率、校验、数据位、停止位", u"9600,N,8,1"};

const Option kFaceOption = {u"face", u"chinese|english", u"记录和统计的文字；也可以写在动词之前", u"chinese"};

const Texts& WordsOf(const Arguments& arguments) {
    const QString face = arguments.Value(u"face");
    if (face != u"chinese" && face != u"english") {
        throw arguments.BadValue(u"face", u" chinese 或 english"_s);
    }
    return face == u"english" ? kEnglishTexts : kChineseTexts;
}

void TakePort(const Arguments& arguments, LineOptions& options) {
    const auto port = NamedPortOf(WithNumber(arguments.Value(u"port")));
    if (!port) throw arguments.BadValue(u"port", u" COM1、COM1=设备 或 /dev/ttyUSB0 的形式"_s);
    options.port = u"COM" + Number(port->number);
    if (!port->device.isEmpty()) options.devices[port->number] = port->device;
}

void TakePortOptions(const Arguments& arguments, LineOptions& options) {
    TakePort(arguments, options);
    options.settings = SettingsOf(arguments);
}

std::optional<int> ShowModeOf(const Arguments& arguments) {
    if (!arguments.Has(u"show")) return std::nullopt;
    const QString mode = arguments.Value(u"show");
    if (mode != u"ascii" && mode != u"hex") throw arguments.BadValue(u"show", u" ascii 或 hex"_s);
    return mode == u"ascii" ? 0 : 1;
}

const OptionList& LineOptionList() {
    static const OptionList kOptions = {
        kFolderOption,
        kServerOption,
        kServerSettingsOption,
        {u"protocol", u"名称", u"通讯协议，见 list protocols"},
        {u"instrument", u"名称", u"仪表，见 list instruments"},
        {u"address", u"N", u"仪表地址", u"1"},
        kPortOption,
        kSettingsOption,
        {kIntervalOptionName, u"毫秒", u"两次通讯的间隔", u"100"},
        {u"show", u"ascii|hex", u"记录中数据串的显示方式，默认随协议"},
        kFaceOption,
    };
    return kOptions;
}

LineOptions LineOptionsOf(const Arguments& arguments, Console& console) {
    LineOptions options;
    options.protocol = arguments.Value(u"protocol").toStdU16String();
    options.instrument = arguments.Value(u"instrument").toStdU16String();
    options.address = Number(arguments.WholeNumber(u"address", 0, kLargestAddress));
    TakePortOptions(arguments, options);
    options.interval = Number(arguments.Holds(kIntervalOptionName)
                                  ? arguments.WholeNumber(kIntervalOptionName, 0, kLongestInterval)
                                  : ShortestInterval(options.settings));
    options.showMode = ShowModeOf(arguments);
    options.words = &WordsOf(arguments);
    options.folder = ProgramFolderOf(arguments, console);
    options.catalogue = CataloguePlaceOf(arguments, CatalogueUse::Reading);
    return options;
}

}  // namespace commtest
