#pragma once

#include <cstdint>
#include <vector>

#include "host/store.h"
#include "session/face.h"

namespace commtest {

// A protocol of the catalogue.
struct ProtocolRecord {
    Text name;      // without the blanks around it
    Text codeText;  // as the catalogue has it

    // Error 13 if the text is no number, error 6 beyond 16 bits.
    std::int16_t Code() const;
};

// A row of 仪表_名称.
struct InstrumentRecord {
    int id = 0;          // 仪表ID
    Text name;           // 仪表名称
    Text code;           // 编号
    Text protocol;       // 协议
    Text sortKey;        // 编码
    Text className;      // 类别
    StoreValue classId;  // 类别ID, a number; on a server anything else is a null
};

// A row of 仪表_参数.
struct ParameterRecord {
    int id = 0;            // ID, the order of the parameters
    int instrumentId = 0;  // 仪表ID
    Text name;             // 参数名称
    Text address;          // 地址
    Text length;           // 长度
    Text attribute;        // 属性
    Text decimalPoint;     // 小数点
    Text lowerLimit;       // 下限值
    Text upperLimit;       // 上限值
};

// A row of 通讯_仿真: an exchange as it was on the line.
struct RecordedExchange {
    Text instrument;      // 仪表名称
    Text protocol;        // 协议
    Text note;            // 说明
    Text code;            // 编码, 编号 of the instrument at that time
    Text day;             // 采集日期, "YYYY-MM-DD"
    Text row;             // 地址, the current row of the parameter grid
    Text request;         // 指令
    Text reply;           // 回送
    bool isValid = true;  // 有效: not marked as deleted
};

// How much a catalogue holds.
struct CatalogueSize {
    int instruments = 0;
    int parameters = 0;
};

// The two forms of a parameter list for the toolbar: the length in a column of its own, or in front of the
// address.
enum class ParameterListForm { LengthApart, LengthInFront };

// Everything that is asked of the catalogue, a routine a statement. A statement that fails raises the store's
// run-time error. Columns of a result stand in the order named; "*" is the order of the table.
class InstrumentCatalogue {
  public:
    explicit InstrumentCatalogue(Store& store) : store_(store) {}

    // Of a settings table: the protocols in their order.
    std::vector<ProtocolRecord> ProtocolList(TextView table = kSettingsTable) const;
    // 字段
    StoreRows DataTypeList(TextView table = kSettingsTable) const;
    // *, of one row a grid column: 使用, 列号, 字段, 宽度, 合并, 对齐.
    StoreRows GridLayout(TextView table = kSettingsTable) const;
    // 原字符, 新字符
    StoreRows Replacements() const;

    // 仪表名称, 协议, 仪表ID, 编号, 类别ID; only instruments that have parameters.
    StoreRows InstrumentsOfProtocol(const Text& protocol) const;
    // 参数名称, 地址, 长度, 属性, 小数点, 上限值, 下限值, 仪表ID, 协议, 编号, 下限值
    StoreRows ParametersOfInstrument(const Text& name) const;
    // 参数名称, 参数地址, (长度,) 小数点, 属性, 下限值, 上限值
    StoreRows ToolbarParameters(ParameterListForm form, const Text& name) const;
    // 仪表名称, 编号
    StoreRows InstrumentCode(const Text& protocol, const Text& name) const;
    // 仪表名称, 协议, 编号
    StoreRows InstrumentsByCode(const Text& protocol) const;

    // 协议, 类别, 仪表名称, 文件名, 日期, 功能简述, 实例, 属性, 编号, 仪表ID, 芯片ID; every instrument, also
    // one without a chip record.
    StoreRows CatalogueList() const;
    StoreRows ChipList() const;
    // 仪表名称, 编号, 文件名, 日期, 实例, 属性, 功能简述, 仪表ID, 芯片ID
    StoreRows ChipRecord(const Text& name, const Text& file) const;

    // 协议, 仪表名称, 说明, 采集日期; without the deleted recordings.
    StoreRows RecordingsList() const;
    // 仪表名称, 协议; deleted recordings take part.
    StoreRows RecordedInstruments(const Text& protocol) const;
    // 指令, 回送, 地址, 编码, ID
    StoreRows FramesOfRecording(const Text& name, const Text& note) const;
    // 说明
    StoreRows NotesOfInstrument(const Text& name) const;
    // *, of the pairs with this reply
    StoreRows RecordedPair(const Text& name, const Text& reply, const Text& note) const;
    void AddRecordedExchange(const RecordedExchange& exchange);
    void RenameRecordedInstrument(const Text& newName, const Text& oldName);
    void ChangeNote(const Text& newNote, const Text& oldNote);
    // Marks the rows as not valid; rows of recorded traffic are never really deleted.
    void DeleteRecording(const Text& name, const Text& note);

    // Deletes all instruments; the store's relation takes their parameters along.
    void ClearCatalogue();
    // The same in slices: deletes a few instruments, false if there was none left.
    bool ClearSomeInstruments();
    CatalogueSize Size() const;
    // *, in the order of 类别ID: 类别, 类别ID
    StoreRows Classes() const;
    StoreRows AllInstruments() const;
    StoreRows AllParameters() const;
    void AddClass(const Text& name, int id);
    void AddInstrument(const InstrumentRecord& instrument);
    void AddParameter(const ParameterRecord& parameter);
    // 参数名称, 合成地址, 长度, 小数点, 属性, 下限值, 上限值, 仪表名称, 编号
    std::unique_ptr<RowCursor> OpenExportRows() const;

  private:
    StoreRows SettingsOf(TextView table, const Text& statement) const;

    Store& store_;
};

}  // namespace commtest
