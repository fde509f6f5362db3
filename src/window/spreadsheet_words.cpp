#include "window/spreadsheet_words.h"

#include <QFileInfo>

#include "app/spreadsheet_words.h"
#include "host_qt/words.h"
#include "window/pieces.h"

namespace commtest {

QString WordsOn(const SpreadsheetResult& result) {
    using enum SpreadsheetResult::Kind;
    if (result.kind == OpenElsewhere) return Words::tr("文件已在别处打开，原文件未动");
    if (result.kind == NoRoom) return Words::tr("磁盘空间不足，原文件未动");
    return ToQt(WordsOnSpreadsheet(result)).simplified();
}

QString WordsOn(const SpreadsheetRun::Entry& entry) {
    if (!entry.failure) return WordsOn(entry.result);
    return Words::tr("参数没有读出：%1").arg(ToQt(entry.failure->StandardMessage()).simplified());
}

QString NameOfResult(const SpreadsheetRun::Entry& entry) { return QFileInfo(ToQt(entry.path)).fileName(); }

}  // namespace commtest
