#include "catalogue/recordings.h"

#include "catalogue/catalogue_schema.h"
#include "catalogue/statements.h"
#include "runtime/number.h"

namespace commtest {

std::vector<RecordingSummary> Recordings::All() const { return Summaries({}, {}); }

std::vector<RecordingSummary> Recordings::OfInstrument(const Text& instrument) const {
    return Summaries(u"Where 仪表名称 = ? ", {instrument});
}

std::vector<RecordingSummary> Recordings::OfNote(const Text& note) const {
    return Summaries(u"Where 说明 = ? ", {note});
}

std::vector<RecordingSummary> Recordings::Of(const Text& instrument, const Text& note) const {
    return Summaries(u"Where 仪表名称 = ? And 说明 = ? ", {instrument, note});
}

std::vector<RecordingSummary> Recordings::Summaries(const Text& condition,
                                                    const std::vector<StoreValue>& values) const {
    const Text statement =
        u"SELECT 协议,仪表名称,说明,MIN(采集日期),MAX(采集日期),COUNT(*),"
        u"SUM(CASE WHEN 有效 = 1 THEN 0 ELSE 1 END) From 通讯_仿真 " +
        condition + u"Group By 协议,仪表名称,说明 Order By 协议,仪表名称,说明";
    const StoreRows found = store_.Query(OrderedAlike(store_.Engine(), statement), values);
    std::vector<RecordingSummary> summaries;
    for (std::size_t row = 0; row < found.rows.size(); ++row) {
        summaries.push_back({found.At(row, 0), found.At(row, 1), found.At(row, 2), found.At(row, 3),
                             found.At(row, 4), LeadingWholeNumber(found.At(row, 5)),
                             LeadingWholeNumber(found.At(row, 6))});
    }
    return summaries;
}

PairCount Recordings::CountOf(const Text& instrument, const Text& note) const {
    PairCount count;
    for (const RecordingSummary& one : Of(instrument, note)) {
        count.all += one.exchanges;
        count.deleted += one.deleted;
    }
    return count;
}

std::vector<RecordedExchange> Recordings::Exchanges(const Text& instrument, const Text& note) const {
    const StoreRows found = store_.Query(
        u"SELECT 协议,编码,采集日期,地址,指令,回送,有效 From 通讯_仿真 Where 仪表名称 = ? And 说明 = ? "
        u"Order By ID",
        {instrument, note});
    std::vector<RecordedExchange> exchanges;
    for (std::size_t row = 0; row < found.rows.size(); ++row) {
        exchanges.push_back({instrument, found.At(row, 0), note, found.At(row, 1), found.At(row, 2),
                             found.At(row, 3), found.At(row, 4), found.At(row, 5), found.At(row, 6) == u"1"});
    }
    return exchanges;
}

void Recordings::Add(const std::vector<RecordedExchange>& exchanges) {
    const PatienceScope patience(store_, Patience::Unlimited);
    BeginWriting(store_);
    store_.BeginTransaction();
    try {
        for (const RecordedExchange& one : exchanges) {
            store_.AddRow(
                u"通讯_仿真",
                {u"仪表名称", u"协议", u"说明", u"编码", u"采集日期", u"地址", u"指令", u"回送", u"有效"},
                {one.instrument, one.protocol, one.note, one.code, one.day, one.row, one.request, one.reply,
                 one.isValid ? u"1" : u"0"});
        }
        store_.Commit();
    } catch (...) {
        store_.Rollback();
        throw;
    }
}

void Recordings::Rename(const Text& instrument, const Text& newName) {
    store_.Execute(u"Update 通讯_仿真 Set 仪表名称 = ? Where 仪表名称 = ?", {newName, instrument});
}

void Recordings::ChangeNote(const Text& note, const Text& newNote) {
    store_.Execute(u"Update 通讯_仿真 Set 说明 = ? Where 说明 = ?", {newNote, note});
}

void Recordings::SetValid(const Text& instrument, const Text& note, bool isValid) {
    store_.Execute(u"Update 通讯_仿真 Set 有效 = ? Where 仪表名称 = ? And 说明 = ?",
                   {isValid ? u"1" : u"0", instrument, note});
}

}  // namespace commtest
