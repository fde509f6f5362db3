#include "app/spreadsheet_words.h"

namespace commtest {

namespace {

using Kind = SpreadsheetResult::Kind;

// Around the detail of the result.
struct Words {
    TextView before;
    TextView behind;
    bool hasDetail = true;
};

Words WordsOf(Kind kind) {
    switch (kind) {
        case Kind::Written: return {u"", u"", false};
        case Kind::NoEngine: return {u"没有能写表格的程序，请安装 gnumeric 或 LibreOffice", u"", false};
        case Kind::NoTemplate:
            return {u"没有模板 ", u"，请放回；commtest-cli catalogue create 会补上缺少的文件"};
        case Kind::UnreadableTemplate: return {u"模板读不出来: ", u"。请换成可用的 参数地址表.xls"};
        case Kind::NoSheet: return {u"模板中没有工作表 \"", u"\"，请检查 参数地址表.xls"};
        case Kind::OpenElsewhere: return {u"结果在另一个程序中打开，请先关闭: ", u""};
        case Kind::NoRight: return {u"没有写入的权限: ", u""};
        case Kind::NoRoom: return {u"磁盘已满，请腾出空间: ", u""};
        case Kind::CannotWrite: return {u"结果写不进去: ", u""};
        case Kind::EngineFailed: return {u"表格程序出错: ", u""};
        case Kind::EngineHangs: return {u"", u" 30 秒内没有写完，已被结束"};
    }
    return {};
}

static_assert(kLongestSpreadsheetStep == 30000);

}  // namespace

Text WordsOnSpreadsheet(const SpreadsheetResult& result) {
    const Words words = WordsOf(result.kind);
    Text line(words.before);
    if (words.hasDetail) line.append(result.detail);
    return line.append(words.behind);
}

}  // namespace commtest
