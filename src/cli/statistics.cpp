#include "cli/statistics.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "cli/line_session.h"
#include "cli/printable_text.h"
#include "runtime/number.h"
#include "session/reply_routing.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

Table TableOf(const Statistics& statistics) {
    Table table;
    const auto add = [&table](TextView key, TextView heading, std::int64_t count) {
        table.columns.push_back({key, heading, CellKind::Number});
        table.rows.front().push_back(WholeText(count));
    };
    table.rows.emplace_back();
    add(u"checkErrors", u"校验出错", statistics.checkErrors);
    add(u"exchanges", u"通讯", statistics.exchanges);
    add(u"frames", u"总计通讯", statistics.frames);
    add(u"incomplete", u"数据不完整", statistics.incomplete);
    add(u"noReply", u"无应答", statistics.noReply);
    add(u"reconnects", u"重新连接", statistics.reconnects);
    add(u"repetitions", u"重复", statistics.repetitions);
    return table;
}

QStringList Keys() {
    QStringList keys;
    for (const TableColumn& column : TableOf({}).columns) keys += QString::fromStdU16String(Text(column.key));
    return keys;
}

}  // namespace

Statistics StatisticsOf(LineSession& line) {
    const MainForm& form = line.Form();
    return {form.CheckErrorCount, line.Exchanges(),         form.SendCount,           form.IncompleteCount,
            form.NoReplyCount,    line.Counts().reconnects, line.Counts().repetitions};
}

void PutStatistics(const Statistics& statistics, JsonWriter& json) { PutOnlyRow(TableOf(statistics), json); }

std::string WordsOn(LineSession& line) {
    ShowStatistics(line.Form());
    Text words = line.Form().ConCommMessage[2].Value();
    const LineSession::RunCounts& counts = line.Counts();
    if (counts.repetitions > 0) words += u"; 重复 " + WholeText(counts.repetitions) + u" 次";
    if (counts.reconnects > 0) words += u"; 重新连接 " + WholeText(counts.reconnects) + u" 次";
    return PrintableText(words);
}

std::string StatisticsFile(LineSession& line, Format format) {
    if (format == Format::Plain) return WordsOn(line) + "\n";
    const Statistics statistics = StatisticsOf(line);
    if (format == Format::Csv) return Printed(TableOf(statistics), format);
    JsonWriter json(kJsonInLines);
    PutStatistics(statistics, json);
    return json.Take();
}

bool IsStatisticsFile(const QByteArray& bytes) {
    const QString text = QString::fromUtf8(bytes);
    static const QRegularExpression kWords(
        u"\\A(?:总计通讯: \\d+ 次|Times: \\d+)\\s+"
        u"数据不完整 \\d+ 次;校验出错 \\d+ 次;无应答 \\d+ 次; 错误率 [^\\n]*\\n\\z"_s);
    static const QRegularExpression kTable(u"\\A%1\\n[\\d,]+\\n\\z"_s.arg(Keys().join(u',')));
    if (kWords.match(text).hasMatch() || kTable.match(text).hasMatch()) return true;
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    return document.isObject() && document.object().keys() == Keys();
}

}  // namespace commtest
