#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include "cli/list_folder.h"

namespace commtest {

namespace {

using ::testing::EndsWith;
using testing::FromCodePage936;
using ::testing::HasSubstr;
using testing::IsProblem;
using testing::ListFolder;
using ::testing::Not;
using testing::Outcome;
using ::testing::StartsWith;
using testing::ToCodePage936;

constexpr const char* kList =
    "Device  EXAMPLE-METER\r\n"
    "Type    31010107\r\n"
    "001  测量值  2010 0020 R\r\n"
    "002  TREND  2011 0 R\r\n"
    "003  OTHER  2012 0 R\r\n"
    "END\r\n";

class CatalogueImport : public ::testing::Test {
  protected:
    CatalogueImport() { folder.Write("TQ.ini", ToCodePage936(kList)); }

    QStringList Copies() const { return folder.NamesBeginning(QString::fromUtf8("通讯数据.mdb.bak-")); }

    ListFolder folder;
    const std::string shippedRows = folder.Rows();
};

TEST_F(CatalogueImport, ReplacesTheCatalogueKeepsACopyAndAppendsTheNewList) {
    const Outcome outcome = folder.Run({"import", "--yes"});
    EXPECT_EQ(outcome.status, 0);
    ASSERT_EQ(Copies().size(), 1);
    EXPECT_EQ(outcome.results, "目录已备份到 " + Copies()[0].toStdString() +
                                   "\n已导入 1 台仪表，1 个参数\n数据库重置完毕！\n目录已追加到 " +
                                   folder.PathText("OutTQ.ini") + "，增加 148 字节，现为 148 字节\n");
    EXPECT_EQ(outcome.problems, "");
    EXPECT_EQ(folder.Rows(), "EXAMPLE-METER 测量值 0010 2\n");
    EXPECT_EQ(FromCodePage936(folder.Read("OutTQ.ini")),
              "Device  EXAMPLE-METER\r\nType    31010107\r\n"
              "001  测量值                                  2010 0020  R                             \r\n"
              "END\r\nDEVICE   END\r\n");
}

TEST_F(CatalogueImport, FileAnywhere) {
    QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath("list.txt");
    folder.Write(path, "Device  A\nType    31010107\nB  2010 0 R\nEND\n");
    EXPECT_EQ(folder.Run({"import", path, "--yes"}).status, 0);
    EXPECT_EQ(folder.Rows(), "A B 0010 2\n");
}

TEST_F(CatalogueImport, ScriptNeedsYes) {
    EXPECT_TRUE(IsProblem(folder.Run({"import"}), 2,
                          "标准输入不是终端，不能询问。同意改动目录时请加上 --yes。用法请看 commtest-cli "
                          "catalogue import --help"));
    EXPECT_EQ(folder.Rows(), shippedRows);
    EXPECT_TRUE(Copies().isEmpty());
}

TEST_F(CatalogueImport, TerminalIsAskedAndToldWhatTheListAndTheCatalogueHold) {
    const std::string path = folder.PathText("TQ.ini");
    const Outcome outcome = folder.RunTyped({"import"}, "y\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(
        outcome.problems,
        path + ": 1 台仪表，1 个参数，1 处问题\n其中 名称含有 END 1 处\n" + path +
            ":4: \"002 TREND 2011 0 R\" 含有 END；这台仪表的参数到此为止，以下的行到 DEVICE 行之前都不导入\n"
            "目录现有 19 台仪表，825 个参数，先备份，再全部由参数表取代\n"
            "确定要重新导入仪表的参数地址表吗？ [y/N] ");
    EXPECT_EQ(folder.Rows(), "EXAMPLE-METER 测量值 0010 2\n");
}

TEST_F(CatalogueImport, AnyOtherAnswerIsNo) {
    for (const char* answer : {"n\n", "\n", "", "yellow\n"}) {
        const Outcome outcome = folder.RunTyped({"import"}, answer);
        EXPECT_EQ(outcome.status, 3);
        EXPECT_THAT(outcome.problems, EndsWith("没有同意。目录没有改变\n"));
    }
    for (const char* answer : {"Y\n", "yes\r\n", "是\n"}) {
        EXPECT_EQ(folder.RunTyped({"import"}, answer).status, 0);
    }
}

TEST_F(CatalogueImport, TwentyFindingsAreShownAndTheRestIsCounted) {
    std::string list = "Device  A\nType    31010107\n";
    for (int i = 0; i < 25; ++i) list += "ROW  2010 0 X\n";
    folder.Write("TQ.ini", list + "END\n");
    const Outcome outcome = folder.RunTyped({"import"}, "n\n");
    EXPECT_THAT(outcome.problems,
                HasSubstr(": 1 台仪表，25 个参数，49 处问题\n其中 地址相同 24 处，属性没有意义 25 处\n"));
    EXPECT_THAT(outcome.problems, HasSubstr("TQ.ini:13: "));
    EXPECT_THAT(outcome.problems, Not(HasSubstr("TQ.ini:14: ")));
    EXPECT_THAT(outcome.problems, HasSubstr("\n还有 29 处，请看 commtest-cli catalogue check\n"));
}

TEST_F(CatalogueImport, ListThatNoImportTakesIsNotAskedFor) {
    folder.Write("TQ.ini", "Device  A\nType    x\n");
    const Outcome outcome = folder.RunTyped({"import"}, "y\n");
    EXPECT_EQ(outcome.status, 3);
    EXPECT_THAT(outcome.problems, EndsWith("这个参数表不能导入。目录没有改变\n"));
    EXPECT_THAT(outcome.problems, Not(HasSubstr("[y/N]")));
    EXPECT_EQ(folder.Rows(), shippedRows);
}

TEST_F(CatalogueImport, ListWithoutADeviceEmptiesTheCatalogue) {
    folder.Write("TQ.ini", "DEVICE   END\r\n");
    const Outcome outcome = folder.RunTyped({"import"}, "y\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_THAT(outcome.problems, StartsWith(folder.PathText("TQ.ini") + ": 0 台仪表，0 个参数，0 处问题\n"));
    EXPECT_EQ(folder.Rows(), "");
}

TEST_F(CatalogueImport, BadRowsAreNamedAndTheStatusSaysSo) {
    folder.Write("TQ.ini", "Device  A\nType    31010107\nB  2010 G R\nC  2011 H R\nEND\n");
    const Outcome outcome = folder.Run({"import", "--yes"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.problems, "B、C  参数数据导入出现错误！\n");
    EXPECT_EQ(folder.Rows(), "A B 0010 2\nA C 0011 2\n");
}

TEST_F(CatalogueImport, ErrorNamesFileAndLineAndNothingHasChanged) {
    const std::string path = folder.PathText("TQ.ini");
    const struct {
        std::string list;
        std::string line;
    } rows[] = {
        {"Device  A\nType    31010107\nB  2010 0 R\n",
         "实时错误 '62': 输入超出文件尾 " + path +
             ":3: 文件在一台仪表中结束，没有 END 行。请补上 END 行。目录没有改变\n"},
        {"Device  A\nType    meter\n", "实时错误 '13': 类型不匹配 " + path +
                                           ":2: 应为数字的字符不是数字。请改正编号或地址。目录没有改变\n"},
        {std::string("Device  A\nType    31010107\n\0\n", 28),
         "实时错误 '52': 文件名或文件号错误 " + path +
             ":3: 这一行含有 NUL 字节。请存为代码页 936 或带标记的 UTF-8 文本。目录没有改变\n"},
    };
    for (const auto& row : rows) {
        folder.Write("TQ.ini", row.list);
        const Outcome outcome = folder.Run({"import", "--yes"});
        EXPECT_EQ(outcome.status, 3);
        EXPECT_EQ(outcome.problems, row.line);
        EXPECT_EQ(folder.Rows(), shippedRows);
    }
    EXPECT_FALSE(QFile::exists(folder.Path("OutTQ.ini")));
}

TEST_F(CatalogueImport, MissingListIsAProblemBeforeAnythingElse) {
    QFile::remove(folder.Path("TQ.ini"));
    EXPECT_TRUE(
        IsProblem(folder.Run({"import", "--yes"}), 3,
                  "实时错误 '53': 文件未找到 " + folder.PathText("TQ.ini") + ": 请检查文件名。目录没有改变"));
    EXPECT_TRUE(Copies().isEmpty());
}

TEST_F(CatalogueImport, FailedExportIsToldAndTheImportStands) {
    QDir(folder.Path("")).mkdir("OutTQ.ini");
    const Outcome outcome = folder.Run({"import", "--yes"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.problems, folder.PathText("OutTQ.ini") + " 写不进去: " + folder.PathText("OutTQ.ini") +
                                    " 是文件夹，不是文件。"
                                    "导入已经完成，可以用 commtest-cli catalogue export 再写一次\n");
    EXPECT_EQ(folder.Rows(), "EXAMPLE-METER 测量值 0010 2\n");
}

TEST_F(CatalogueImport, ReportsAsJson) {
    folder.Write("TQ.ini", "Device  A\nType    31010107\nB  2010 G R\nEND\n");
    const Outcome outcome = folder.Run({"import", "--yes", "--format", "json"});
    EXPECT_EQ(outcome.status, 1);
    ASSERT_EQ(Copies().size(), 1);
    EXPECT_EQ(outcome.results, R"({
    "backup": ")" + Copies()[0].toStdString() +
                                   R"(",
    "badParameters": [
        "B"
    ],
    "file": ")" + folder.PathText("TQ.ini") +
                                   R"(",
    "instruments": 1,
    "message": "B  参数数据导入出现错误！",
    "parameters": 1,
    "written": {
        "file": ")" + folder.PathText("OutTQ.ini") +
                                   R"(",
        "growth": 136,
        "instruments": 1,
        "lossyRows": [
        ],
        "parameters": 1,
        "size": 136
    }
}
)");
}

}  // namespace

}  // namespace commtest
