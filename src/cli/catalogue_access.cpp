#include "cli/catalogue_access.h"

#include <algorithm>
#include <set>

#include "catalogue/catalogue_connection.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/shipped_catalogue.h"
#include "cli/suggestion.h"
#include "host_qt/path_problem.h"
#include "host_qt/program_folder.h"

namespace commtest {

using namespace Qt::StringLiterals;

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

namespace {

QString WhatToDo(const RuntimeError& error, const QString& catalogue) {
    if (!ObstacleTo(PathUse::Reading, catalogue).isEmpty()) return u" 请检查 --folder"_s;
    const QString anew = u"用 commtest-cli catalogue create 在另一个文件夹新建目录"_s;
    if (dynamic_cast<const DamagedStore*>(&error) != nullptr) return u" 请放回完好的一份，或"_s + anew;
    return u" 请检查 --folder，结束占用目录的其他程序，或"_s + anew;
}

}  // namespace

void OpenCatalogueOf(const ProgramFiles& files, Store& store) {
    const StoreAddress address = LocalCatalogue(files);
    try {
        store.Open(address);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, QString::fromStdU16String(error.StandardMessage()) +
                                                WhatToDo(error, QString::fromStdU16String(address.location)));
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
