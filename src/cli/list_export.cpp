#include "cli/list_export.h"

#include "cli/problem.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

ExportedList ExportList(Store& store, ListOutput& output, const std::function<bool(const Text&)>& wanted,
                        ListProgress& progress) {
    ParameterListExport list(
        store, [&output](const std::string& bytes) { output.Write(bytes); }, wanted);
    const auto place = [&list] { return ListPlace{list.Parameters(), list.Instruments(), 0, 0}; };
    if (!progress.Run([&list] { return list.Step(); }, place)) {
        throw Problem(ExitStatus::NoAccess, u"已中断，没有导出完"_s);
    }
    output.Finish();
    return {list.Instruments(), list.Parameters(), list.LossyRows()};
}

void TellLossyRows(const std::vector<LossyRow>& rows, Console& console) {
    for (const LossyRow& row : rows) {
        const QString instrument = QString::fromStdU16String(row.instrument);
        const QString place = row.serial == 0 ? u"仪表 \"%1\""_s.arg(instrument)
                                              : u"仪表 \"%1\" 第 %2 个参数 \"%3\""_s.arg(instrument)
                                                    .arg(row.serial)
                                                    .arg(QString::fromStdU16String(row.name));
        console.Tell(place + u" 有代码页 936 中没有的字符，已写成 ?"_s);
    }
    if (rows.size() == ParameterListExport::kMostLossyRows) {
        console.Tell(u"只列出了前 %1 行"_s.arg(rows.size()));
    }
}

void PutExport(const ExportedList& list, const ListOutput& output, JsonWriter& json) {
    json.BeginObject();
    json.PutText(u"file", output.Path().toStdU16String());
    json.PutNumber(u"growth", output.Growth());
    json.PutNumber(u"instruments", list.instruments);
    json.PutKey(u"lossyRows");
    json.BeginArray();
    for (const LossyRow& row : list.lossyRows) {
        json.BeginObject();
        json.PutText(u"instrument", row.instrument);
        json.PutText(u"name", row.name);
        json.PutNumber(u"serial", row.serial);
        json.EndObject();
    }
    json.EndArray();
    json.PutNumber(u"parameters", list.parameters);
    json.PutNumber(u"size", output.Size());
    json.EndObject();
}

}  // namespace commtest
