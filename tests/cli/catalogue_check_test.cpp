#include <gtest/gtest.h>

#include "cli/list_folder.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::ListFolder;
using testing::Outcome;
using testing::ToCodePage936;

class CatalogueCheck : public ::testing::Test {
  protected:
    // What check prints of a list, without the path in front of each line.
    std::string Printed(const std::string& list) {
        folder.Write("TQ.ini", list);
        outcome = folder.Run({"check"});
        const std::string path = folder.PathText("TQ.ini") + ":";
        std::string printed = outcome.results;
        for (auto at = printed.find(path); at != std::string::npos; at = printed.find(path))
            printed.erase(at, path.size());
        return printed;
    }

    ListFolder folder;
    Outcome outcome;
};

TEST_F(CatalogueCheck, GoodListHasNoFindings) {
    EXPECT_EQ(Printed("; a remark\r\nDevice  EXAMPLE-METER\r\nType    31010107\r\n"
                      "001  VALUE  2010 0 R\r\n002  LIMIT  2011 0 RW -1999 9999\r\nEND\r\nDEVICE   END\r\n"),
              "1 台仪表，2 个参数，0 处问题\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.problems, "");
}

TEST_F(CatalogueCheck, EachFindingHasItsLineAndWhatWillComeOfIt) {
    EXPECT_EQ(Printed(ToCodePage936("Device  EXAMPLE-METER\n"
                                    "Type    99010907\n"
                                    "001  FLOW  2010 G R 0 1 2\n"
                                    "002  ABCD1  2011 0 R\n"
                                    "003  NONE\n"
                                    "; remark  2030 0 R\n"
                                    "004  SPEED  2010 0 X a 1\n"
                                    "005  TIME  1011 0 R\n"
                                    "006  一二三四五六七八九十一二三四五六七八九十一  1020 0 R\n"
                                    "Device  OTHER  2040 0 R\n"
                                    "007  TREND  2050 0 R\n"
                                    "Device  EXAMPLE-METER\n"
                                    "Type    31010107\n"
                                    "END\n"
                                    "Device  VENDOR-8\n")),
              R"(2: "EXAMPLE-METER" 的编号以 99 开头，没有这个协议代码；作为 TQ仪表协议 的仪表导入
2: "EXAMPLE-METER" 的类别 "09" 目录中没有；类别和类别ID 都记为这两个字符
3: "FLOW" 的小数点 "G" 不是十六进制数；照原样导入，导入后列出名称
3: "FLOW" 的字段过多；多出的字段不导入
4: 行首的 "ABCD" 是四个十六进制字符，作为地址；名称为空，这一行不导入
5: "NONE" 没有地址；导入时长度为空，地址为 0
6: ";REMARK" 是参数之间的注释；成为一个参数
7: "SPEED" 的地址 2010 与 "FLOW" 相同；两个参数都导入
7: "SPEED" 的属性 "X" 不是由 R、W、S、D 组成；照原样导入
7: "SPEED" 的下限或上限 "A" 不是数；照原样导入，写入时不按它检查
8: "TIME" 的地址 1011 与 "FLOW" 重叠；两个参数都导入
9: "一二三四五六七八九十一二三四五六七八九十一" 超过 40 字节；全部导入，导出时后面的列右移
10: "DEVICEOTHER" 之前的仪表没有 END 行；这一行成为那台仪表的参数，以下的参数也归它
11: "007 TREND 2050 0 R" 含有 END；这台仪表的参数到此为止，以下的行到 DEVICE 行之前都不导入
12: 仪表 "EXAMPLE-METER" 前面已有；两台都导入，相邻时导出为一台
15: "DEVICE VENDOR-8" 含有 DEVICE 和 END；导入到此为止，以下的仪表都不导入
2 台仪表，7 个参数，16 处问题
)");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.problems, "");
}

TEST_F(CatalogueCheck, TellsOfBytesAndMissingTypeLines) {
    EXPECT_EQ(Printed("Device  EXAMPLE\n" + std::string(30, '\n') + "\xFF\nEND\n"),
              "1: \"EXAMPLE\" 之后 30 行中没有 TYPE 行；第 30 行作为 TYPE 行，之前的行不导入\n"
              "31: TYPE 行的编号不以数字开头；导入在这里出错结束，目录不改变\n"
              "1 台仪表，0 个参数，2 处问题\n");
    EXPECT_EQ(Printed("; \xFF\n"),
              "1: 有代码页 936 中没有的字节；这些字节导入后是 U+FFFD\n0 台仪表，0 个参数，1 处问题\n");
    EXPECT_EQ(
        Printed("; 参数\n"),
        "1: 文件像是没有标记的 UTF-8；按代码页 936 导入，汉字会成为别的字。请加上标记，或存为代码页 936\n"
        "0 台仪表，0 个参数，1 处问题\n");
}

TEST_F(CatalogueCheck, ListThatNoImportTakesSaysSo) {
    const struct {
        std::string list;
        const char* printed;
    } rows[] = {
        {"Device  A\nType    31010107\nB  2010 0 R\n",
         "1: 文件在一台仪表中结束，没有 END 行；导入在这里出错结束，目录不改变\n1 台仪表，1 个参数，1 "
         "处问题\n"},
        {"Device  A\nType    meter\n",
         "2: TYPE 行的编号不以数字开头；导入在这里出错结束，目录不改变\n1 台仪表，0 个参数，1 处问题\n"},
        {"\n" + std::string(65537, 'A') + "\n",
         "2: 这一行超过 64 KB；导入在这里出错结束，目录不改变\n0 台仪表，0 个参数，1 处问题\n"},
        {std::string("\n\n\0\n", 4),
         "3: 这一行含有 NUL 字节；导入在这里出错结束，目录不改变\n0 台仪表，0 个参数，1 处问题\n"},
        {"\xFF\xFE"
         "A",
         "1: 文件是 UTF-16；导入在这里出错结束，目录不改变\n0 台仪表，0 个参数，1 处问题\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Printed(row.list), row.printed);
        EXPECT_EQ(outcome.status, 1);
    }
}

TEST_F(CatalogueCheck, FileAnywhereAsJson) {
    QTemporaryDir elsewhere;
    const QString path = elsewhere.filePath("list.txt");
    folder.Write(path, "Device  A\nType    31010107\nB  2010 0 R\n");
    const Outcome json = folder.Run({"check", path, "--format", "json"});
    EXPECT_EQ(json.status, 1);
    EXPECT_EQ(json.results, R"({
    "file": ")" + path.toStdString() +
                                R"(",
    "findings": [
        {
            "kind": "endsInsideBlock",
            "line": 1,
            "name": "A",
            "other": "",
            "outcome": "导入在这里出错结束，目录不改变",
            "value": "",
            "what": "文件在一台仪表中结束，没有 END 行"
        }
    ],
    "instruments": 1,
    "parameters": 1,
    "stopsImport": true
}
)");
}

TEST_F(CatalogueCheck, FileThatCannotBeReadIsAProblem) {
    EXPECT_TRUE(IsProblem(folder.Run({"check"}), 3,
                          "实时错误 '53': 文件未找到 " + folder.PathText("TQ.ini") + ": 请检查文件名"));
    EXPECT_TRUE(
        IsProblem(folder.Run({"check", "/dev/null"}), 3, "/dev/null 不是普通文件，读不了两遍。请给出文件"));
}

TEST_F(CatalogueCheck, LeavesTheCatalogueAsItIs) {
    const std::string before = folder.Read(QString::fromUtf8("通讯数据.mdb"));
    Printed("Device  A\nType    31010107\nB  2010 0 R\nEND\n");
    EXPECT_TRUE(before == folder.Read(QString::fromUtf8("通讯数据.mdb")));
}

TEST_F(CatalogueCheck, CannotSteerTheTerminal) {
    EXPECT_EQ(
        Printed("Device  A\nType    31010107\nB\x1B[2J  2010 0 X\nEND\n"),
        "3: \"B\\1B[2J\" 的属性 \"X\" 不是由 R、W、S、D 组成；照原样导入\n1 台仪表，1 个参数，1 处问题\n");
}

}  // namespace

}  // namespace commtest
