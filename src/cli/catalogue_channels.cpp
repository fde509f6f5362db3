#include "catalogue/channel_table.h"
#include "cli/catalogue_access.h"
#include "cli/catalogue_actions.h"
#include "cli/list_output.h"
#include "cli/list_source.h"
#include "cli/list_words.h"
#include "host/file_names.h"
#include "host_qt/folder_files.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

ChannelTable TableOf(const ListSource& source) {
    auto bytes = source.Open();
    try {
        ListLines lines(std::move(bytes));
        return ChannelTableOf(lines);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess, WordsOnListError(error, source.Path(), 0));
    }
}

ExitStatus Channels(const Arguments& arguments, Console& console) {
    const auto named = arguments.OnePositionalAtMost();
    const auto outputName = OutputNamed(arguments);
    FolderFiles files(ProgramFolderOf(arguments, console));
    const ListSource source(files, named, kTemplateFileName);
    const ChannelTable table = TableOf(source);
    ListOutput output(OutputKind::ChannelTable, outputName, files, console);
    output.Write(table.bytes);
    output.Finish();
    if (!output.IsResults()) {
        console.Print(u"%1 个通道，每个 %2 行，"_s.arg(kChannels).arg(table.rows) + output.Words() + u'\n');
    }
    for (const int line : table.lossyLines) {
        console.Tell(u"%1:%2: 有代码页 936 中没有的字符，已写成 ?"_s.arg(source.Path()).arg(line));
    }
    return table.lossyLines.empty() ? ExitStatus::Good : ExitStatus::BadRows;
}

}  // namespace

Verb CatalogueChannels() {
    return {u"catalogue channels",
            u"[模板] [选项]",
            u"由一个通道的模板写出 32 个通道的表，默认追加到 OutTQ.Dev",
            {kFolderOption, kListOutputOption},
            Channels,
            uR"(不给出模板时用程序文件夹中的 TQP.Dev。模板中 % 是通道号，* 是小数点的地址，到 END 行为止。
)"};
}

}  // namespace commtest
