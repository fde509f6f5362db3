#include <QFileInfo>

#include "app/protocol_table.h"
#include "catalogue/instrument_catalogue.h"
#include "cli/catalogue_access.h"
#include "cli/line_options.h"
#include "cli/suggestion.h"
#include "cli/table.h"
#include "cli/verb.h"
#include "host_qt/catalogue_store.h"
#include "host_qt/folder_files.h"
#include "host_qt/port_problem.h"
#include "runtime/number.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QStringList kTopics = {u"ports"_s, u"protocols"_s, u"instruments"_s, u"parameters"_s, u"chips"_s};

Table ProtocolTableOf(Store& store) {
    Table table;
    table.columns = {
        {u"code", u"编号", CellKind::Number}, {u"name", u"协议"}, {u"supported", u"可用", CellKind::YesNo}};
    for (const ProtocolRecord& protocol : InstrumentCatalogue(store).ProtocolList()) {
        const bool isKnown = Protocols().Of(LeadingWholeNumber(protocol.codeText)).IsKnown();
        table.rows.push_back({protocol.codeText, protocol.name, isKnown ? u"是" : u"否"});
    }
    return table;
}

Table InstrumentTableOf(Store& store, const std::vector<Text>& protocols) {
    Table table;
    table.columns = {{u"name", u"仪表名称"}, {u"protocol", u"协议"}, {u"code", u"编号"}};
    for (const Text& protocol : protocols) {
        const StoreRows instruments = InstrumentCatalogue(store).InstrumentsOfProtocol(protocol);
        for (std::size_t row = 0; row < instruments.rows.size(); ++row) {
            table.rows.push_back({instruments.At(row, 0), protocol, instruments.At(row, 3)});
        }
    }
    return table;
}

// Fields of the query: 0 to 4 go to the grid, then the upper limit and the lower one.
Table ParameterTableOf(Store& store, const Text& instrument) {
    Table table;
    table.columns = {{u"row", u"序号", CellKind::Number},
                     {u"name", u"参数名称"},
                     {u"address", u"地址"},
                     {u"length", u"长度"},
                     {u"attribute", u"属性"},
                     {u"decimals", u"小数点"},
                     {u"upperLimit", u"上限值"},
                     {u"lowerLimit", u"下限值"}};
    const StoreRows parameters = InstrumentCatalogue(store).ParametersOfInstrument(instrument);
    for (std::size_t row = 0; row < parameters.rows.size(); ++row) {
        std::vector<Text> cells = {WholeText(static_cast<std::int64_t>(row) + 1)};
        for (std::size_t field = 0; field < table.columns.size() - 1; ++field) {
            cells.push_back(parameters.At(row, field));
        }
        table.rows.push_back(std::move(cells));
    }
    return table;
}

// Every instrument, also one without a chip record; of one protocol where one is named.
Table ChipTableOf(Store& store, const std::optional<Text>& protocol) {
    Table table;
    table.columns = {{u"name", u"仪表名称"},    {u"code", u"编号"},    {u"file", u"文件名"},
                     {u"date", u"日期"},        {u"example", u"实例"}, {u"attribute", u"属性"},
                     {u"purpose", u"功能简述"}, {u"protocol", u"协议"}};
    const StoreRows chips = InstrumentCatalogue(store).ChipList();
    for (std::size_t row = 0; row < chips.rows.size(); ++row) {
        const auto at = [&](std::size_t column) { return chips.At(row, column); };
        if (protocol && at(0) != *protocol) continue;
        table.rows.push_back({at(2), at(8), at(3), at(4), at(6), at(7), at(5), at(0)});
    }
    return table;
}

std::vector<Text> AllInstrumentNames(Store& store) {
    std::vector<Text> names;
    for (const Text& protocol : ProtocolNames(store)) {
        for (Text& name : InstrumentNames(store, protocol)) names.push_back(std::move(name));
    }
    return names;
}

std::optional<Text> WantedProtocol(const Arguments& arguments, Store& store) {
    if (!arguments.Has(u"protocol")) return std::nullopt;
    const Text protocol = arguments.Value(u"protocol").toStdU16String();
    RequireKnown(u"协议", protocol, ProtocolNames(store), u"list protocols");
    return protocol;
}

std::vector<Text> WantedProtocols(const Arguments& arguments, Store& store) {
    const auto protocol = WantedProtocol(arguments, store);
    return protocol ? std::vector{*protocol} : ProtocolNames(store);
}

Table TableOf(const QString& topic, const Arguments& arguments, Store& store) {
    if (topic == u"protocols") return ProtocolTableOf(store);
    if (topic == u"instruments") return InstrumentTableOf(store, WantedProtocols(arguments, store));
    if (topic == u"chips") return ChipTableOf(store, WantedProtocol(arguments, store));
    const Text word = arguments.Value(u"instrument").toStdU16String();
    return ParameterTableOf(store, InstrumentMeant(word, AllInstrumentNames(store)));
}

Table PortTableOf(const Arguments& arguments) {
    LineOptions named;
    if (arguments.Has(u"port")) TakePort(arguments, named);
    Table table;
    table.columns = {
        {u"name", u"串口"}, {u"device", u"设备"}, {u"description", u"说明"}, {u"holder", u"占用者"}};
    for (const PortDevice& port : QtSerialPort(named.devices).Devices()) {
        const QString device = QFileInfo(QString::fromStdU16String(port.device)).canonicalFilePath();
        const QString holder = device.isEmpty() ? QString() : HolderOf(device);
        table.rows.push_back(
            {u"COM" + WholeText(port.number), port.device, port.description, holder.toStdU16String()});
    }
    return table;
}

QStringList OptionsOf(const QString& topic) {
    if (topic == u"ports") return {u"port"_s, u"format"_s};
    QStringList options = {u"folder"_s, u"server"_s, u"server-settings"_s, u"format"_s};
    if (topic == u"instruments" || topic == u"chips") options += u"protocol"_s;
    if (topic == u"parameters") options += u"instrument"_s;
    return options;
}

ExitStatus List(const Arguments& arguments, Console& console) {
    const QString known = u"ports、protocols、instruments、parameters 或 chips"_s;
    const QString topic = arguments.Positional(1, known).constFirst();
    if (!kTopics.contains(topic)) {
        const QString meant = DidYouMean(topic, kTopics);
        throw arguments.BadUsage(u"没有列表 \"%1\""_s.arg(topic) +
                                 (meant.isEmpty() ? u"，应为 "_s + known : meant));
    }
    arguments.RequireKnownToAction(u"list "_s + topic, OptionsOf(topic));
    const Format format = FormatOf(arguments);
    if (topic == u"ports") {
        console.Print(Printed(PortTableOf(arguments), format));
        return ExitStatus::Good;
    }
    if (topic == u"parameters") arguments.Value(u"instrument");
    CatalogueStore store;
    OpenCatalogueOf(FolderFiles(ProgramFolderOf(arguments, console)), store,
                    CataloguePlaceOf(arguments, CatalogueUse::Reading), console);
    console.Print(Printed(TableOf(topic, arguments, store), format));
    return ExitStatus::Good;
}

}  // namespace

Verb ListVerb() {
    return {u"list",
            u"ports|protocols|instruments|parameters|chips [选项]",
            u"列出本机的串口，目录中的协议、仪表、芯片资料，或一种仪表的参数",
            {kFolderOption,
             kServerOption,
             kServerSettingsOption,
             {u"protocol", u"名称", u"只列出这个协议的仪表或芯片资料"},
             {u"instrument", u"名称", u"列出这种仪表的参数"},
             kPortOption,
             kFormatOption},
            List};
}

}  // namespace commtest
