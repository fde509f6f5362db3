#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "catalogue/catalogue_connection.h"
#include "catalogue/instrument_catalogue.h"
#include "cli/list_folder.h"
#include "host_qt/folder_files.h"
#include "host_qt/qt_store.h"

namespace commtest {

namespace {

using testing::FromCodePage936;
using ::testing::HasSubstr;
using testing::IsProblem;
using testing::ListFolder;
using testing::Outcome;

class CatalogueExport : public ::testing::Test {
  protected:
    CatalogueExport() {
        store.Open(LocalCatalogue(FolderFiles(folder.Path(""))));
        InstrumentCatalogue catalogue(store);
        catalogue.ClearCatalogue();
        AddMeter(1, u"EXAMPLE-METER", u"测量值");
        AddMeter(2, u"OTHER", u"VALUE");
    }

    void AddMeter(int id, const Text& name, const Text& parameter) {
        InstrumentCatalogue catalogue(store);
        catalogue.AddInstrument({id, name, u"31010107", u"ModBus-RTU协议", u"31", u"数字显示仪表", u"1"});
        catalogue.AddParameter({id, id, parameter, u"0010", u"2", u"RW", u"0020", u"-1999", u"9999"});
    }

    ListFolder folder;
    QtStore store;
};

constexpr const char* kBothMeters =
    "Device  EXAMPLE-METER\r\n"
    "Type    31010107\r\n"
    "001  测量值                                  2010 0020  RW    -1999       9999        \r\n"
    "END\r\n"
    "\r\n"
    "Device  OTHER\r\n"
    "Type    31010107\r\n"
    "001  VALUE                                   2010 0020  RW    -1999       9999        \r\n"
    "END\r\n"
    "DEVICE   END\r\n";

TEST_F(CatalogueExport, AppendsToTheListOfTheFolderAndTellsHowItHasGrown) {
    const Outcome first = folder.Run({"export"});
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.results, "2 台仪表，2 个参数，已追加到 " + folder.PathText("OutTQ.ini") +
                                 "，增加 276 字节，现为 276 字节\n");
    EXPECT_EQ(first.problems, "");
    EXPECT_EQ(folder.Run({"export"}).results, "2 台仪表，2 个参数，已追加到 " + folder.PathText("OutTQ.ini") +
                                                  "，增加 276 字节，现为 552 字节\n");
    EXPECT_EQ(FromCodePage936(folder.Read("OutTQ.ini")), std::string(kBothMeters) + kBothMeters);
}

TEST_F(CatalogueExport, OutputHoldsTheListAlone) {
    const QString path = folder.Path("out.ini");
    for (int turn = 1; turn <= 2; ++turn) {
        const Outcome outcome = folder.Run({"export", "--output", path});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.results, "2 台仪表，2 个参数，已写入 " + path.toStdString() + "，276 字节\n");
        EXPECT_EQ(FromCodePage936(folder.Read("out.ini")), kBothMeters);
    }
    EXPECT_EQ(folder.Read("OutTQ.ini"), "");
}

TEST_F(CatalogueExport, ResultsAreTheListAndNothingBeside) {
    const Outcome outcome = folder.Run({"export", "--output", "-"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(FromCodePage936(outcome.results), kBothMeters);
    EXPECT_EQ(outcome.problems, "");
}

TEST_F(CatalogueExport, InstrumentsNamedAlone) {
    AddMeter(3, u"THIRD", u"VALUE");
    const Outcome outcome =
        folder.Run({"export", "--output", "-", "--instrument", "THIRD", "--instrument", "OTHER"});
    EXPECT_EQ(outcome.results,
              "Device  OTHER\r\nType    31010107\r\n"
              "001  VALUE                                   2010 0020  RW    -1999       9999        \r\n"
              "END\r\n\r\nDevice  THIRD\r\nType    31010107\r\n"
              "001  VALUE                                   2010 0020  RW    -1999       9999        \r\n"
              "END\r\nDEVICE   END\r\n");
}

TEST_F(CatalogueExport, FileThatIsNoListIsNotReplaced) {
    for (const char* content : {"notes", "Endless", "; remark\r\nDevice  A\r\n"}) {
        folder.Write("notes.txt", content);
        const QString path = folder.Path("notes.txt");
        EXPECT_TRUE(IsProblem(folder.Run({"export", "--output", path}), 2,
                              path.toStdString() + " 已存在，不是参数表，没有改动。请给出另一个文件名"));
        EXPECT_EQ(folder.Read("notes.txt"), content);
    }
    const std::string place = folder.PathText("place");
    QDir(folder.Path("")).mkdir("place");
    EXPECT_TRUE(IsProblem(folder.Run({"export", "--output", folder.Path("place")}), 2,
                          place + " 是文件夹，不是文件，没有改动。请给出另一个文件名"));
}

TEST_F(CatalogueExport, EmptyFilesAndListsAreReplaced) {
    for (const char* content : {"", "DEVICE  A\r\n", "device b", "END\r\nDEVICE   END\r\n", "END"}) {
        folder.Write("list.txt", content);
        EXPECT_EQ(folder.Run({"export", "--output", folder.Path("list.txt")}).status, 0);
        EXPECT_EQ(FromCodePage936(folder.Read("list.txt")), kBothMeters);
    }
}

TEST_F(CatalogueExport, FailureLeavesTheFileThatWasThere) {
    folder.Write("list.txt", "END");
    store.Execute(u"DROP VIEW 仪表参数");
    store.Execute(
        u"CREATE VIEW 仪表参数 AS SELECT 参数名称,地址 合成地址,长度,小数点,属性,下限值,"
        u"abs(-9223372036854775808) 上限值,仪表名称,编号,编码 排序,仪表ID,ID "
        u"FROM 仪表_名称 JOIN 仪表_参数 USING (仪表ID)");
    const Outcome outcome = folder.Run({"export", "--output", folder.Path("list.txt")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.problems, HasSubstr("overflow"));
    EXPECT_EQ(folder.Read("list.txt"), "END");
}

TEST_F(CatalogueExport, PlaceThatCannotBeWrittenIsAProblem) {
    QDir(folder.Path("")).mkdir("OutTQ.ini");
    EXPECT_TRUE(IsProblem(
        folder.Run({"export"}), 3,
        folder.PathText("OutTQ.ini") + " 写不进去: " + folder.PathText("OutTQ.ini") + " 是文件夹，不是文件"));
    const Outcome outcome = folder.Run({"export", "--output", folder.Path("none/list.ini")});
    EXPECT_EQ(outcome.status, 3);
    EXPECT_EQ(outcome.results, "");
}

TEST_F(CatalogueExport, UnknownInstrumentIsAProblem) {
    EXPECT_TRUE(IsProblem(folder.Run({"export", "--instrument", "OTHER", "--instrument", "none"}), 2,
                          "目录中没有仪表 \"none\"。可用名称请看 commtest-cli list instruments"));
    EXPECT_FALSE(QFile::exists(folder.Path("OutTQ.ini")));
}

TEST_F(CatalogueExport, PartOfANameThatFitsOneInstrumentIsEnough) {
    const Outcome outcome = folder.Run({"export", "--output", "-", "--instrument", "EXAMPLE"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.results, HasSubstr("EXAMPLE-METER"));
}

TEST_F(CatalogueExport, RowsThatLoseACharacterAreTold) {
    AddMeter(3, u"THIRD☃", u"☃");
    const Outcome outcome = folder.Run({"export"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.problems,
              "仪表 \"THIRD☃\" 有代码页 936 中没有的字符，已写成 ?\n"
              "仪表 \"THIRD☃\" 第 1 个参数 \"☃\" 有代码页 936 中没有的字符，已写成 ?\n");
}

TEST_F(CatalogueExport, ReportsAsJson) {
    AddMeter(3, u"THIRD", u"☃");
    EXPECT_EQ(folder.Run({"export", "--instrument", "THIRD", "--format", "json"}).results, R"({
    "file": ")" + folder.PathText("OutTQ.ini") + R"(",
    "growth": 140,
    "instruments": 1,
    "lossyRows": [
        {
            "instrument": "THIRD",
            "name": "☃",
            "serial": 1
        }
    ],
    "parameters": 1,
    "size": 140
}
)");
}

TEST_F(CatalogueExport, WrongWordsAreBadUsage) {
    EXPECT_TRUE(IsProblem(
        folder.Run({"export", "--output", "-", "--format", "json"}), 2,
        "选项 --output - 和 --format json 只能用一个。用法请看 commtest-cli catalogue export --help"));
    EXPECT_TRUE(IsProblem(
        folder.Run({"export", "--format", "csv"}), 2,
        "选项 --format 的值 \"csv\" 不对，应为 text 或 json。用法请看 commtest-cli catalogue export --help"));
    EXPECT_TRUE(IsProblem(folder.Run({"export", "x"}), 2,
                          "多余的参数 \"x\"。用法请看 commtest-cli catalogue export --help"));
}

}  // namespace

}  // namespace commtest
