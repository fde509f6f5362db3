#include "cli/list_folder.h"

#include <QDir>
#include <QFile>

#include "catalogue/catalogue_connection.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_store.h"
#include "runtime/code_page.h"

namespace commtest::testing {

ListFolder::ListFolder() : folder_(outer_.filePath(QString::fromUtf8("程序 folder"))) {
    RunCommand({"catalogue", "create", folder_});
}

QString ListFolder::Path(const QString& name) const { return QDir(folder_).filePath(name); }

void ListFolder::Write(const QString& name, const std::string& bytes) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

std::string ListFolder::Read(const QString& name) const {
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

QStringList ListFolder::NamesBeginning(const QString& beginning) const {
    return QDir(folder_).entryList({beginning + "*"}, QDir::Files, QDir::Name);
}

QStringList ListFolder::WholeCall(const QStringList& words) const {
    return QStringList("catalogue") + words + QStringList{"--folder", folder_};
}

Outcome ListFolder::Run(const QStringList& words) const { return RunCommand(WholeCall(words)); }

Outcome ListFolder::RunTyped(const QStringList& words, const std::string& input) const {
    return RunCommand(WholeCall(words), input, true);
}

std::string ListFolder::Rows() const {
    QtStore store;
    store.Open(LocalCatalogue(FolderFiles(folder_)));
    const StoreRows rows = store.Query(
        u"SELECT 仪表名称||' '||参数名称||' '||地址||' '||长度 FROM 仪表_参数 JOIN 仪表_名称 USING (仪表ID) "
        u"ORDER BY ID");
    std::string text;
    for (std::size_t row = 0; row < rows.rows.size(); ++row) text += ToUtf8(rows.At(row, 0)) + "\n";
    return text;
}

std::string FromCodePage936(const std::string& bytes) { return ToUtf8(FromCodePage(bytes)); }

std::string ToCodePage936(const std::string& utf8) { return ToCodePage(FromUtf8(utf8)); }

}  // namespace commtest::testing
