#include "window/channel_table_note.h"

#include <QFileInfo>
#include <algorithm>

#include "catalogue/channel_table.h"
#include "host/dialogs.h"
#include "host/file_names.h"
#include "host/program_files.h"
#include "host_qt/words.h"
#include "window/list_words.h"
#include "window/pieces.h"

namespace commtest {

namespace {

QString ReasonOf(const RuntimeError& error) {
    const QString file = ToQt(kTemplateFileName);
    if (error.Number() == RuntimeError::kTypeMismatch)
        return Words::tr("%1：地址前的长度不是数字。请改正模板中的地址").arg(file);
    return WordsOn(ListProblem::Of(error, 0), error.Number() == RuntimeError::kBadFile
                                                  ? file + Words::tr("、") + ToQt(kChannelTableFileName)
                                                  : file);
}

QString WordsOn(const ChannelTable& table, std::uint64_t size) {
    QStringList lossy;
    for (const int line : table.lossyLines) lossy += QString::number(line);
    QString words = Words::tr("已写 %1 行到 %2，现有 %3")
                        .arg(GroupedNumber(std::count(table.bytes.begin(), table.bytes.end(), '\n')),
                             ToQt(kChannelTableFileName), WordsOnBytes(size));
    if (!lossy.isEmpty())
        words +=
            Words::tr("；模板第 %1 行有代码页 936 中没有的字符，已写成 ?").arg(lossy.join(Words::tr("、")));
    return words;
}

}  // namespace

void MakeChannelTable(Binder& binder, NoteBar& notes, const FolderOpener& open) {
    const Outside& outside = binder.Form().outside;
    const Text name(kChannelTableFileName);
    try {
        const ChannelTable table = GenerateChannelTable(outside.files);
        const QString folder = QFileInfo(ToQt(outside.files.PathOf(name))).absolutePath();
        notes.Ask(WordsOn(table, outside.files.OpenBytes(name)->Size()), Glyph::Tick, Words::tr("打开文件夹"),
                  [open, folder] { open(folder); });
    } catch (const RuntimeError& error) {
        outside.dialogs.ShowMessage(error.StandardMessage(), ReasonOf(error).toStdU16String());
    }
}

}  // namespace commtest
