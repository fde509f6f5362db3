#include "cli/catalogue_access.h"

#include <QDir>
#include <algorithm>
#include <set>

#include "catalogue/catalogue_connection.h"
#include "catalogue/catalogue_upgrade.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/schema_version.h"
#include "catalogue/shipped_catalogue.h"
#include "cli/suggestion.h"
#include "host/file_names.h"
#include "host_qt/older_catalogue.h"
#include "host_qt/path_problem.h"
#include "host_qt/program_folder.h"
#include "host_qt/system_clock.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

// The server's own words hold no password.
Problem ServerProblem(const ProgramFiles& files, const CataloguePlace& place, const RuntimeError& error) {
    const QString file = QString::fromStdU16String(files.PathOf(place.settings));
    const QString message = QString::fromStdU16String(error.StandardMessage()).simplified();
    return {ExitStatus::NoAccess, u"%1 服务器上的目录打不开，请检查 %2 和服务器"_s.arg(message, file)};
}

QString WhatToDo(const RuntimeError& error, const QString& catalogue) {
    if (!ObstacleTo(PathUse::Reading, catalogue).isEmpty()) return u" 请检查 --folder"_s;
    const QString anew = u"用 commtest-cli catalogue create 在另一个文件夹新建目录"_s;
    if (dynamic_cast<const DamagedStore*>(&error) != nullptr) return u" 请放回完好的一份，或"_s + anew;
    return u" 请检查 --folder，结束占用目录的其他程序，或"_s + anew;
}

void RefuseOlderCatalogue(const QString& file, Console& console) {
    if (!IsOlderCatalogue(file)) return;
    console.Tell(u"%1 是旧格式的桌面数据库，不能直接使用，没有改动"_s.arg(file));
    throw Problem(
        ExitStatus::NoAccess,
        u"请用 Debian 的 mdbtools 把其中的表写成文件 (mdb-tables 列出表，mdb-export 数据库 表 > 表.csv)，"
        u"再用 commtest-cli catalogue load 新文件夹 --tables 表的文件夹 建立目录"_s);
}

void TellIfNewer(Store& store, Console& console) {
    const int version = SchemaVersionOf(store);
    if (version <= kSchemaVersion) return;
    KeepFromWriting(store);
    console.Tell(
        u"目录是较新的程序建立的 (表结构第 %1 版，本程序到第 %2 版)，只读取它，不改写"_s.arg(version).arg(
            kSchemaVersion));
}

}  // namespace

const Option kFolderOption = {
    u"folder", u"文件夹",
    u"程序文件夹，目录文件 通讯数据.mdb 在其中；默认为程序所在文件夹或用户的数据文件夹"};

QString ProgramFolderOf(const Arguments& arguments, Console& console) {
    if (arguments.Has(kFolderOption.name)) return arguments.Value(kFolderOption.name);
    try {
        const ProgramFolder folder = FindProgramFolder(FillWithShippedCatalogue);
        if (folder.wasMade) console.Tell(u"已建立程序文件夹 %1"_s.arg(folder.path));
        return folder.path;
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, u"不能建立程序文件夹 %1: %2。请用 --folder 指定"_s.arg(
                                                UsersProgramFolder(), ReasonOf(error)));
    }
}

const Option kServerOption = {u"server", {}, u"用服务器上的目录，服务器见程序文件夹中的 Setup.ini"};
const Option kServerSettingsOption = {u"server-settings", u"文件", u"用服务器上的目录，服务器见这个文件"};

CataloguePlace CataloguePlaceOf(const Arguments& arguments, CatalogueUse use) {
    CataloguePlace place = ServerPlaceOf(arguments, use);
    place.isServer = arguments.Has(kServerOption.name) || arguments.Has(kServerSettingsOption.name);
    return place;
}

CataloguePlace ServerPlaceOf(const Arguments& arguments, CatalogueUse use) {
    if (!arguments.Has(kServerSettingsOption.name)) return {true, Text(kServerFileName), use};
    const QString file = arguments.Value(kServerSettingsOption.name);
    return {true, QDir().absoluteFilePath(file).toStdU16String(), use};
}

void OpenServer(const ProgramFiles& files, Store& store, const CataloguePlace& place) {
    try {
        StoreAddress address = ServerCatalogue(files, place.settings);
        address.tables.clear();
        store.Open(address);
    } catch (const RuntimeError& error) {
        throw ServerProblem(files, place, error);
    }
}

CataloguePlace OpenCatalogueOf(const ProgramFiles& files, Store& store, const CataloguePlace& place,
                               Console& console) {
    if (place.isServer) {
        try {
            store.Open(ServerCatalogue(files, place.settings));
            TellIfNewer(store, console);
            return place;
        } catch (const RuntimeError& error) {
            const Problem problem = ServerProblem(files, place, error);
            if (place.use == CatalogueUse::Writing) throw problem;
            console.Tell(problem.Line() + u"。改用本地目录"_s);
        }
    }
    OpenLocalCatalogue(files, store, console);
    return {};
}

void OpenLocalCatalogue(const ProgramFiles& files, Store& store, Console& console) {
    const StoreAddress address = LocalCatalogue(files);
    RefuseOlderCatalogue(QString::fromStdU16String(address.location), console);
    try {
        store.Open(address);
        TellIfNewer(store, console);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, QString::fromStdU16String(error.StandardMessage()) +
                                                WhatToDo(error, QString::fromStdU16String(address.location)));
    }
}

void PrepareForWriting(Store& store, ProgramFiles& files, Console& console, const Text& spared) {
    const int version = SchemaVersionOf(store);
    if (version > kSchemaVersion)
        throw Problem(ExitStatus::NoAccess, u"目录是较新的程序建立的，没有改动。请升级程序"_s);
    if (version == kSchemaVersion) return;
    try {
        const Text copy = UpgradeCatalogue(store, files, SystemClock().Now(), spared);
        console.Tell(u"目录的表结构已由第 %1 版升级到第 %2 版，升级前的目录存为 %3"_s.arg(version)
                         .arg(kSchemaVersion)
                         .arg(QString::fromStdU16String(copy)));
    } catch (const RuntimeError& error) {
        console.Tell(u"%1 目录的表结构没有升级，照第 %2 版使用"_s
                         .arg(QString::fromStdU16String(error.StandardMessage()).simplified())
                         .arg(version));
    }
}

std::vector<Text> ProtocolNames(Store& store) {
    std::vector<Text> names;
    for (const ProtocolRecord& protocol : InstrumentCatalogue(store).ProtocolList()) {
        names.push_back(protocol.name);
    }
    return names;
}

std::vector<Text> InstrumentNames(Store& store, const Text& protocol) {
    const StoreRows instruments = InstrumentCatalogue(store).InstrumentsOfProtocol(protocol);
    std::vector<Text> names;
    for (std::size_t row = 0; row < instruments.rows.size(); ++row) {
        names.push_back(Trim(instruments.At(row, 0)));
    }
    return names;
}

Text InstrumentMeant(const Text& word, const std::vector<Text>& known) {
    if (std::find(known.begin(), known.end(), word) != known.end()) return word;
    std::set<Text> fitting;
    for (const Text& name : known) {
        if (Contains(name, word)) fitting.insert(name);
    }
    if (fitting.size() == 1) return *fitting.begin();
    if (fitting.empty()) RequireKnown(u"仪表", word, known, u"list instruments");
    QStringList names;
    for (const Text& name : fitting) names += QString::fromStdU16String(name);
    throw Problem(ExitStatus::BadUsage,
                  u"名称中有 \"%1\" 的仪表有 %2 种: %3。请写全"_s.arg(QString::fromStdU16String(word))
                      .arg(names.size())
                      .arg(names.join(u"、"_s)));
}

void RequireKnown(QStringView kind, const Text& name, const std::vector<Text>& known, QStringView listing) {
    if (std::find(known.begin(), known.end(), name) != known.end()) return;
    const QString word = QString::fromStdU16String(name);
    QStringList words;
    for (const Text& each : known) words += QString::fromStdU16String(each);
    const QString meant = DidYouMean(word, words);
    throw Problem(ExitStatus::BadUsage, u"目录中没有%1 \"%2\"%3可用名称请看 commtest-cli %4"_s.arg(
                                            kind, word, meant.isEmpty() ? u"。"_s : meant, listing));
}

}  // namespace commtest
