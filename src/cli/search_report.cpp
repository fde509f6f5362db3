#include "cli/search_report.h"

#include "cli/check_key.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr std::int64_t kMicroseconds = 1000;  // of a millisecond
constexpr std::size_t kShownBytes = 16;

Text WordsOn(CheckWord check, Format format) {
    if (format == Format::Json) return Text(KeyOf(check));
    switch (check) {
        case CheckWord::Right: return u"正确";
        case CheckWord::Wrong: return u"错误";
        case CheckWord::None: return u"没有";
        default: return u"未判断";
    }
}

Text FirstBytes(const HexText& reply) {
    constexpr std::size_t kCharactersOfAByte = 3;
    return Trim(reply.substr(0, kShownBytes * kCharactersOfAByte));
}

}  // namespace

std::string SearchReport(const std::vector<SearchHit>& hits, Format format) {
    Table table;
    table.columns = {{u"address", u"地址", CellKind::Number},
                     {u"baud", u"波特率", CellKind::Number},
                     {u"replyTime", u"应答时间 ms", CellKind::Number},
                     {u"checkWord", u"校验码"},
                     {u"firstBytes", u"开头的字节"}};
    for (const SearchHit& hit : hits) {
        const std::int64_t time = (hit.replyTime.value_or(0) + kMicroseconds / 2) / kMicroseconds;
        table.rows.push_back({WholeText(hit.address), hit.rate, WholeText(time), WordsOn(hit.check, format),
                              FirstBytes(hit.reply)});
    }
    return Printed(table, format);
}

}  // namespace commtest
