#include "catalogue/statements.h"

namespace commtest {

namespace {

constexpr TextView kParameterJoin = u"仪表_名称 INNER JOIN 仪表_参数 ON 仪表_名称.仪表ID = 仪表_参数.仪表ID";
constexpr TextView kChipJoin = u"仪表_芯片 RIGHT JOIN 仪表_名称 ON 仪表_芯片.编号 = 仪表_名称.编号";
constexpr TextView kListColumns =
    u"协议,类别,仪表名称,文件名, 日期, 功能简述,实例,属性,仪表_名称.编号,仪表_名称.仪表ID,仪表_芯片.芯片ID";

// Those with an order.
constexpr Text Statements::*kOrdered[] = {&Statements::protocolList,
                                          &Statements::dataTypeList,
                                          &Statements::gridLayout,
                                          &Statements::instrumentsOfProtocol,
                                          &Statements::parametersOfInstrument,
                                          &Statements::parametersLengthApart,
                                          &Statements::parametersLengthInFront,
                                          &Statements::instrumentsByCode,
                                          &Statements::catalogueList,
                                          &Statements::chipList,
                                          &Statements::chipRecord,
                                          &Statements::recordingsList,
                                          &Statements::recordedInstruments,
                                          &Statements::framesOfRecording,
                                          &Statements::notesOfInstrument,
                                          &Statements::classes,
                                          &Statements::exportRows};

Text Joined(std::initializer_list<TextView> parts) {
    Text text;
    for (const TextView part : parts) text += part;
    return text;
}

void AddSettings(Statements& page) {
    page.protocolList = u"SELECT 字段,宽度 From ? Where 使用 ='协议规定' Order By 列号";
    page.dataTypeList = u"SELECT 字段 FROM ? Where 使用 ='数据类型' Order By 列号";
    page.gridLayout = u"SELECT * From ? Where 使用 ='仪表通信' Order By 列号";
    page.replacements = u"SELECT 原字符,新字符 From 字符_替换";
}

void AddInstruments(Statements& page, StoreEngine engine) {
    // One parameter of each is looked for, however many it has.
    page.instrumentsOfProtocol =
        u"SELECT DISTINCT 仪表名称,协议,仪表_名称.仪表ID,编号,类别ID From  仪表_名称  Where 协议 ='?' And "
        u"EXISTS "
        u"(SELECT 1 From 仪表_参数 Where 仪表_参数.仪表ID = 仪表_名称.仪表ID) ORDER BY 仪表名称";
    page.parametersOfInstrument = Joined(
        {u"SELECT 参数名称, 地址,长度,属性,小数点,上限值,下限值,仪表_名称.仪表ID,协议,编号,下限值 From ",
         kParameterJoin, u" Where  仪表名称 = '?' ORDER BY ID"});
    page.parametersLengthApart =
        Joined({u"SELECT 参数名称,地址 As 参数地址,长度,小数点,属性,下限值,上限值 From  ", kParameterJoin,
                u"  Where  仪表名称 = '?' ORDER BY ID"});
    page.parametersLengthInFront = Joined({u"SELECT 参数名称,", LengthInFrontOfAddress(engine),
                                           u" As 参数地址,小数点,属性,下限值,上限值 From  ", kParameterJoin,
                                           u"  Where  仪表名称 = '?' ORDER BY ID"});
    page.instrumentCode = u"SELECT 仪表名称,编号 From 仪表_名称 Where 协议 ='?' And 仪表名称 = '?'";
    page.instrumentsByCode =
        u"SELECT DISTINCT 仪表名称,协议,编号 From 仪表_名称 Where 协议 ='?' ORDER BY 编号";
}

void AddLists(Statements& page) {
    page.catalogueList = Joined(
        {u"SELECT ", kListColumns, u" From ", kChipJoin, u"  Order By 仪表_名称.编号,类别ID,仪表名称"});
    page.chipList =
        Joined({u"SELECT ", kListColumns, u" From ", kChipJoin, u" Order By 编码,类别ID,仪表名称"});
    page.chipRecord =
        Joined({u"SELECT 仪表名称,仪表_名称.编号,文件名, 日期, "
                u"实例,属性,功能简述,仪表_名称.仪表ID,仪表_芯片.芯片ID From ",
                kChipJoin, u" Where 仪表名称 = '?' And 文件名 = '?' Order By 编码,类别ID,仪表名称"});
}

void AddRecordings(Statements& page) {
    page.recordingsList =
        u"SELECT DISTINCT 协议,仪表名称,说明,采集日期 From 通讯_仿真 Where 有效 = 1 "
        u"Order By 协议,仪表名称,说明,采集日期";
    page.recordedInstruments =  // Q169: whether deleted or not
        u"SELECT DISTINCT 仪表名称,协议 From 通讯_仿真 Where 协议 ='?' ORDER BY 仪表名称";
    page.framesOfRecording =
        u"SELECT DISTINCT 指令,回送,地址,编码,ID From 通讯_仿真 Where 仪表名称 ='?' And 说明 = '?' Order By "
        u"ID";
    page.notesOfInstrument = u"SELECT DISTINCT 说明 From 通讯_仿真 Where 仪表名称 ='?' ORDER BY 说明";
    page.recordedPair = u"SELECT * From 通讯_仿真 Where 仪表名称 = '?' And 回送 = '?' And 说明 = '?'";
    page.renameRecordedInstrument = u"Update 通讯_仿真 Set 仪表名称 = '?' Where 仪表名称 ='?'";
    // Q168: of every instrument.
    page.changeNote = u"Update 通讯_仿真 Set 说明 = '?' Where 说明 ='?'";
    page.deleteRecording = u"Update 通讯_仿真 Set 有效 = 0 Where 仪表名称 = '?' And 说明 = '?'";
}

void AddImportAndExport(Statements& page) {
    page.clearCatalogue = u"Delete From 仪表_名称";
    page.clearSomeInstruments =
        u"Delete From 仪表_名称 Where 仪表ID < (SELECT MIN(仪表ID) + 20 From 仪表_名称)";
    page.instrumentCount = u"SELECT COUNT(*) From 仪表_名称";
    page.parameterCount = u"SELECT COUNT(*) From 仪表_参数";
    page.classes = u"SELECT * From 仪表_类别 Order By 类别ID";
    page.allInstruments = u"SELECT * From 仪表_名称";
    page.allParameters = u"SELECT * From 仪表_参数";
    page.exportRows =
        u"SELECT 参数名称,合成地址,长度,小数点,属性,下限值,上限值,仪表名称,编号 From 仪表参数 Order By "
        u"排序,仪表ID,ID";
}

// Rows that are equal in the order asked for come by their keys, as they do unasked from the embedded engine.
void BreakTies(Statements& page) {
    page.instrumentsOfProtocol += u",仪表_名称.仪表ID";
    page.instrumentsByCode =
        u"SELECT 仪表名称,协议,编号 From 仪表_名称 Where 协议 ='?' Group By 仪表名称,协议,编号 "
        u"ORDER BY 编号,MIN(仪表ID)";
    for (Text* list : {&page.catalogueList, &page.chipList, &page.chipRecord})
        *list += u",仪表_名称.仪表ID,仪表_芯片.芯片ID";
}

Statements PageOf(StoreEngine engine) {
    Statements page;
    AddSettings(page);
    AddInstruments(page, engine);
    AddLists(page);
    AddRecordings(page);
    AddImportAndExport(page);
    if (engine != StoreEngine::Sqlite) BreakTies(page);
    for (Text Statements::*statement : kOrdered) page.*statement = OrderedAlike(engine, page.*statement);
    return page;
}

}  // namespace

const Statements& StatementsOf(StoreEngine engine) {
    static const Statements sqlite = PageOf(StoreEngine::Sqlite);
    static const Statements sqlServer = PageOf(StoreEngine::SqlServer);
    static const Statements postgreSql = PageOf(StoreEngine::PostgreSql);
    switch (engine) {
        case StoreEngine::SqlServer: return sqlServer;
        case StoreEngine::PostgreSql: return postgreSql;
        case StoreEngine::Sqlite: break;
    }
    return sqlite;
}

Text NameInStatement(StoreEngine engine, TextView table) {
    if (table.find(u'-') == TextView::npos) return Text(table);
    const bool isInBrackets = engine == StoreEngine::SqlServer;
    return Joined({isInBrackets ? u"[" : u"\"", table, isInBrackets ? u"]" : u"\""});
}

Text LengthInFrontOfAddress(StoreEngine engine) {
    const TextView join = engine == StoreEngine::SqlServer ? u" + " : u" || ";
    return Joined({u"COALESCE(长度,'')", join, u"COALESCE(地址,'')"});
}

Text OrderedAlike(StoreEngine engine, const Text& statement) {
    if (engine != StoreEngine::PostgreSql) return statement;
    std::size_t order = statement.rfind(u"Order By ");
    if (order == Text::npos) order = statement.rfind(u"ORDER BY ");
    if (order == Text::npos) return statement;
    Text sql = statement.substr(0, order);
    for (const char16_t character : statement.substr(order)) {
        if (character == u',') sql += u" NULLS FIRST";
        sql += character;
    }
    return sql + u" NULLS FIRST";
}

std::optional<Text> CopyStatement(StoreEngine engine, const Text& path) {
    if (engine != StoreEngine::Sqlite) return std::nullopt;
    Text literal;
    for (const char16_t character : path) literal += Text(character == u'\'' ? 2 : 1, character);
    return u"VACUUM INTO '" + literal + u"'";
}

// Q163: nothing is escaped.
Text StatementWith(TextView statement, std::initializer_list<TextView> values) {
    Text sql;
    auto value = values.begin();
    for (const char16_t character : statement) {
        if (character == u'?' && value != values.end()) {
            sql += *value++;
        } else {
            sql += character;
        }
    }
    return sql;
}

}  // namespace commtest
