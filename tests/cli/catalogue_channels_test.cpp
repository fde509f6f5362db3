#include <gtest/gtest.h>

#include "cli/list_folder.h"

namespace commtest {

namespace {

using testing::FromCodePage936;
using testing::IsProblem;
using testing::ListFolder;
using testing::Outcome;
using testing::ToCodePage936;

class CatalogueChannels : public ::testing::Test {
  protected:
    ListFolder folder;
    const std::string path = folder.PathText("OutTQ.Dev");
};

std::string FirstLines(const std::string& bytes, int lines) {
    std::size_t end = 0;
    for (int i = 0; i < lines; ++i) end = bytes.find('\n', end) + 1;
    return FromCodePage936(bytes.substr(0, end));
}

TEST_F(CatalogueChannels, TemplateOfTheFolderIsAppendedForEachChannel) {
    folder.Write("TQP.Dev", ToCodePage936("小数点%  1010 0\n测量值%  2011 *\nEND\nignored\n"));
    const Outcome outcome = folder.Run({"channels"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.results,
              "32 个通道，每个 2 行，已追加到 " + path + "，增加 1216 字节，现为 1216 字节\n");
    EXPECT_EQ(outcome.problems, "");
    EXPECT_EQ(FirstLines(folder.Read("OutTQ.Dev"), 4),
              "小数点01  1010 0\r\n测量值01  2010 010\r\n小数点02  1011 0\r\n测量值02  2012 011\r\n");
    EXPECT_EQ(folder.Run({"channels"}).results,
              "32 个通道，每个 2 行，已追加到 " + path + "，增加 1216 字节，现为 2432 字节\n");
}

TEST_F(CatalogueChannels, OutputHoldsTheTableAlone) {
    folder.Write("own.txt", "A%  2010 0\n");
    const QString table = folder.Path("table.txt");
    for (int turn = 1; turn <= 2; ++turn) {
        const Outcome outcome = folder.Run({"channels", folder.Path("own.txt"), "--output", table});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.results, "32 个通道，每个 1 行，已写入 " + table.toStdString() + "，416 字节\n");
    }
    EXPECT_EQ(FirstLines(folder.Read("table.txt"), 2), "A01  2010 0\r\nA02  2011 0\r\n");
    EXPECT_EQ(folder.Read("OutTQ.Dev"), "");
}

TEST_F(CatalogueChannels, ResultsAreTheTableAndNothingBeside) {
    folder.Write("TQP.Dev", "A%  1010 0\n");
    const Outcome outcome = folder.Run({"channels", "--output", "-"});
    EXPECT_EQ(FirstLines(outcome.results, 1), "A01  1010 0\r\n");
    EXPECT_EQ(outcome.results.size(), 416U);
}

TEST_F(CatalogueChannels, FileThatIsNoTableIsNotReplaced) {
    folder.Write("notes", "notes");
    folder.Write("TQP.Dev", "A%  1010 0\n");
    EXPECT_TRUE(IsProblem(folder.Run({"channels", "--output", folder.Path("notes")}), 2,
                          folder.PathText("notes") + " 已存在，不是通道表，没有改动。请给出另一个文件名"));
}

TEST_F(CatalogueChannels, TemplateIsNotReplaced) {
    folder.Write("TQP.Dev", "A%  1010 0\n");
    EXPECT_TRUE(IsProblem(folder.Run({"channels", "--output", folder.Path("TQP.Dev")}), 2,
                          folder.PathText("TQP.Dev") + " 是程序自己用的文件，没有改动。请给出另一个文件名"));
    EXPECT_EQ(folder.Read("TQP.Dev"), "A%  1010 0\n");
}

TEST_F(CatalogueChannels, TemplateThatCannotBeTakenIsAProblem) {
    EXPECT_TRUE(IsProblem(folder.Run({"channels"}), 3,
                          "实时错误 '53': 文件未找到 " + folder.PathText("TQP.Dev") + ": 请检查文件名"));
    folder.Write("TQP.Dev", std::string("A  1010 0\nB\0\n", 13));
    EXPECT_TRUE(IsProblem(folder.Run({"channels"}), 3,
                          "实时错误 '52': 文件名或文件号错误 " + folder.PathText("TQP.Dev") +
                              ":2: 这一行含有 NUL 字节。请存为代码页 936 或带标记的 UTF-8 文本"));
    folder.Write("TQP.Dev", "A  A010 0\n");
    EXPECT_TRUE(IsProblem(folder.Run({"channels"}), 3,
                          "实时错误 '13': 类型不匹配 " + folder.PathText("TQP.Dev") +
                              ": 应为数字的字符不是数字。请改正编号或地址"));
    EXPECT_EQ(folder.Read("OutTQ.Dev"), "");
}

TEST_F(CatalogueChannels, LinesThatLoseACharacterAreTold) {
    folder.Write("TQP.Dev",
                 "\xEF\xBB\xBF"
                 "A%  1010 0\n☃%  1011 0\n");
    const Outcome outcome = folder.Run({"channels"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.problems, folder.PathText("TQP.Dev") + ":2: 有代码页 936 中没有的字符，已写成 ?\n");
}

}  // namespace

}  // namespace commtest
