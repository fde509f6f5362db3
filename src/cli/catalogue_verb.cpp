#include <QDir>

#include "catalogue/shipped_catalogue.h"
#include "cli/verb.h"
#include "host/file_names.h"
#include "host_qt/program_folder.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

ExitStatus Catalogue(const Arguments& arguments, Console& console) {
    const QStringList words = arguments.Positional(2, u"create 文件夹");
    if (words[0] != u"create") {
        throw Problem(
            ExitStatus::BadUsage,
            u"没有动作 \"%1\"，应为 create。用法请看 commtest-cli catalogue --help"_s.arg(words[0]));
    }
    const bool isNew = CreateProgramFolder(words[1].toStdU16String(), FillWithShippedCatalogue);
    const QString file = QDir(words[1]).filePath(QString::fromStdU16String(Text(kCatalogueFileName)));
    console.Print(isNew ? u"已建立 %1\n"_s.arg(file) : u"%1 已存在，没有改动\n"_s.arg(file));
    return ExitStatus::Good;
}

}  // namespace

Verb CatalogueVerb() {
    return {u"catalogue",
            u"create 文件夹",
            u"建立程序文件夹: 随附的目录和存放记录的文件夹；已有的文件不改动",
            {},
            Catalogue};
}

}  // namespace commtest
