#include "cli/catalogue_access.h"

#include <algorithm>

#include "catalogue/catalogue_connection.h"
#include "catalogue/instrument_catalogue.h"
#include "catalogue/shipped_catalogue.h"
#include "cli/suggestion.h"
#include "host_qt/program_folder.h"
#include "runtime/runtime_error.h"

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
        throw Problem(ExitStatus::NoAccess,
                      u"%1 不能建立程序文件夹 %2，请用 --folder 指定"_s.arg(
                          QString::fromStdU16String(error.StandardMessage()), UsersProgramFolder()));
    }
}

void OpenCatalogueOf(const ProgramFiles& files, Store& store) {
    try {
        store.Open(LocalCatalogue(files));
    } catch (const RuntimeError& error) {
        throw Problem(
            ExitStatus::NoAccess,
            QString::fromStdU16String(error.StandardMessage()) +
                u" 请检查 --folder，结束占用目录的其他程序，或用 commtest-cli catalogue create 在另一个文件夹新建目录"_s);
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
