#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "catalogue/catalogue_connection.h"
#include "cli/command_line_runner.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_store.h"

namespace commtest {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using testing::IsProblem;
using testing::Outcome;
using testing::RunCommand;
using testing::RunInFolder;
using ::testing::StartsWith;

QJsonArray JsonOf(const Outcome& outcome) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(outcome.results)).array();
}

TEST(ListVerb, ProtocolsStandWithTheirCodesAndWhetherTheyCanBeUsed) {
    const Outcome outcome = RunInFolder({"list", "protocols"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.results, StartsWith("编号  协议                         可用\n"
                                            "  11  TQ仪表协议                   是\n"));
    EXPECT_EQ(std::count(outcome.results.begin(), outcome.results.end(), '\n'), 15);
}

TEST(ListVerb, ProtocolsAsJson) {
    const QJsonArray protocols = JsonOf(RunInFolder({"list", "protocols", "--format", "json"}));
    ASSERT_EQ(protocols.size(), 14);
    EXPECT_EQ(protocols[1].toObject()["code"].toInt(), 12);
    EXPECT_EQ(protocols[1].toObject()["name"].toString().toStdString(), "TQ仪表协议-定制累加和");
    EXPECT_TRUE(protocols[1].toObject()["supported"].toBool());
}

TEST(ListVerb, ProtocolWhoseCodeIsNoNumberIsListedAllTheSame) {
    QTemporaryDir folder;
    RunCommand({"catalogue", "create", folder.path()});
    QtStore store;
    store.Open(LocalCatalogue(FolderFiles(folder.path())));
    store.AddRow(u"表格_设置", {u"使用", u"列号", u"字段", u"宽度"}, {u"协议规定", u"99", u" 协议甲 ", u"x"});
    store.Close();
    EXPECT_THAT(RunCommand({"list", "protocols", "--format", "csv", "--folder", folder.path()}).results,
                EndsWith("\n51,ModBus-RTU协议-M46T,是\nx,协议甲,否\n"));
    EXPECT_THAT(
        RunCommand({"list", "protocols", "--format", "json", "--folder", folder.path()}).results,
        EndsWith("\"code\": 0,\n        \"name\": \"协议甲\",\n        \"supported\": false\n    }\n]\n"));
}

TEST(ListVerb, InstrumentsOfEveryProtocolOrOfOne) {
    const Outcome all = RunInFolder({"list", "instruments", "--format", "csv"});
    EXPECT_THAT(all.results, StartsWith("name,protocol,code\n"));
    EXPECT_THAT(all.results, HasSubstr("\nHX-D12智能光柱显示仪,TQ仪表协议-定制累加和,12000103\n"));
    EXPECT_THAT(all.results, HasSubstr("\nHX-N41电炉控制仪,"));

    const Outcome one = RunInFolder(
        {"list", "instruments", "--protocol", QString::fromUtf8("TQ仪表协议-定制累加和"), "--format", "csv"});
    EXPECT_EQ(one.results, "name,protocol,code\nHX-D12智能光柱显示仪,TQ仪表协议-定制累加和,12000103\n");
}

TEST(ListVerb, ParametersStandWithTheirRows) {
    const Outcome outcome = RunInFolder(
        {"list", "parameters", "--instrument", QString::fromUtf8("HX-D12智能光柱显示仪"), "--format", "csv"});
    EXPECT_THAT(outcome.results,
                StartsWith("row,name,address,length,attribute,decimals,upperLimit,lowerLimit\n"
                           "1,仪表型号,2001,2,R,0,,\n"));
    EXPECT_THAT(outcome.results, HasSubstr("\n12,量程下限,2022,2,RW,1020,9999,-1999\n"));
}

TEST(ListVerb, ChipRecordsStandWithEveryInstrumentAlsoOneWithoutARecord) {
    const std::string records = RunInFolder({"list", "chips", "--format", "csv"}).results;
    EXPECT_THAT(records, StartsWith("name,code,file,date,example,attribute,purpose,protocol\n"));
    EXPECT_THAT(records, HasSubstr("\nHX-D10智能数字显示控制仪,11000101,D10V104.HEX,2026-06-02,标准,量产,"
                                   "标准型，带四路报警与变送输出；修正断线时的显示。,TQ仪表协议\n"));
    EXPECT_THAT(records, HasSubstr("\nHX-F40智能流量积算仪,11000301,,,,,,TQ仪表协议\n"));
    EXPECT_EQ(std::count(records.begin(), records.end(), '\n'), 21);
}

TEST(ListVerb, ChipRecordsOfOneProtocol) {
    const QString protocol = QString::fromUtf8("TQ仪表协议-定制累加和");
    EXPECT_EQ(RunInFolder({"list", "chips", "--protocol", protocol, "--format", "csv"}).results,
              "name,code,file,date,example,attribute,purpose,protocol\n"
              "HX-D12智能光柱显示仪,12000103,D12V101.HEX,2025-11-03,光柱,量产,"
              "光柱显示，和校验的定制协议。,TQ仪表协议-定制累加和\n");
}

TEST(ListVerb, ChipRecordsAsTextAndAsJson) {
    EXPECT_THAT(RunInFolder({"list", "chips"}).results,
                StartsWith("仪表名称                  编号      文件名"));
    const QJsonArray records = JsonOf(RunInFolder({"list", "chips", "--format", "json"}));
    ASSERT_EQ(records.size(), 20);
    EXPECT_EQ(records[0].toObject()["file"].toString().toStdString(), "D10V103.HEX");
    EXPECT_EQ(records[0].toObject()["date"].toString().toStdString(), "2026-03-12");
    EXPECT_EQ(records[0].toObject()["example"].toString().toStdString(), "标准");
}

TEST(ListVerb, UnknownNamesAreBadUsage) {
    EXPECT_TRUE(IsProblem(RunInFolder({"list", "instruments", "--protocol", "TQ"}), 2,
                          "目录中没有协议 \"TQ\"。可用名称请看 commtest-cli list protocols"));
    EXPECT_TRUE(IsProblem(RunInFolder({"list", "parameters", "--instrument", "it's"}), 2,
                          "目录中没有仪表 \"it's\"。可用名称请看 commtest-cli list instruments"));
    EXPECT_TRUE(IsProblem(RunInFolder({"list", "parameters"}), 2,
                          "缺少选项 --instrument。用法请看 commtest-cli list --help"));
}

TEST(ListVerb, PartOfANameThatFitsOneInstrumentIsEnough) {
    const Outcome whole =
        RunInFolder({"list", "parameters", "--instrument", QString::fromUtf8("HX-M31智能数显表")});
    const Outcome part = RunInFolder({"list", "parameters", "--instrument", "M31"});
    EXPECT_EQ(part.status, 0);
    EXPECT_EQ(part.results, whole.results);
    const Outcome several = RunInFolder({"list", "parameters", "--instrument", "HX-M"});
    EXPECT_EQ(several.status, 2);
    EXPECT_THAT(several.problems, StartsWith("名称中有 \"HX-M\" 的仪表有 "));
}

TEST(ListVerb, WithoutAFolderTheUsersOwnIsMadeOnce) {
    QTemporaryDir data;
    const QByteArray former = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", data.path().toUtf8());
    const Outcome first = RunCommand({"list", "protocols"});
    const Outcome second = RunCommand({"list", "protocols"});
    qputenv("XDG_DATA_HOME", former);
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.problems, "已建立程序文件夹 " + data.path().toStdString() + "/CommTest\n");
    EXPECT_EQ(second.status, 0);
    EXPECT_EQ(second.problems, "");
    EXPECT_EQ(second.results, first.results);
}

TEST(ListVerb, MissingCatalogueIsAProblemAndMakesNoFile) {
    QTemporaryDir folder;
    const QString file = folder.filePath(QString::fromUtf8("通讯数据.mdb"));
    const Outcome outcome = RunCommand({"list", "protocols", "--folder", folder.path()});
    EXPECT_TRUE(IsProblem(outcome, 3,
                          "数据库错误: " + file.toStdString() +
                              "：数据库文件不存在 请检查 --folder，结束占用目录的其他程序，或用 commtest-cli "
                              "catalogue create 在另一个文件夹新建目录"));
    EXPECT_FALSE(QFile::exists(file));
}

TEST(ListVerb, FileThatIsNoCatalogueIsAProblemAndStays) {
    QTemporaryDir folder;
    QFile file(folder.filePath(QString::fromUtf8("通讯数据.mdb")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no catalogue");
    file.close();
    const Outcome outcome = RunCommand({"list", "protocols", "--folder", folder.path()});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.problems, StartsWith("数据库错误: "));
    EXPECT_EQ(std::count(outcome.problems.begin(), outcome.problems.end(), '\n'), 1);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "no catalogue");
}

}  // namespace

}  // namespace commtest
