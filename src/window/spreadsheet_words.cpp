#include "window/spreadsheet_words.h"

#include <QFileInfo>

#include "app/spreadsheet_words.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

QString WordsOn(const SpreadsheetResult& result) {
    using enum SpreadsheetResult::Kind;
    if (result.kind == OpenElsewhere) return u"文件已在别处打开，原文件未动"_s;
    if (result.kind == NoRoom) return u"磁盘空间不足，原文件未动"_s;
    return ToQt(WordsOnSpreadsheet(result)).simplified();
}

QString WordsOn(const SpreadsheetRun::Entry& entry) {
    if (!entry.failure) return WordsOn(entry.result);
    return u"参数没有读出：%1"_s.arg(ToQt(entry.failure->StandardMessage()).simplified());
}

QString NameOfResult(const SpreadsheetRun::Entry& entry) { return QFileInfo(ToQt(entry.path)).fileName(); }

}  // namespace commtest
