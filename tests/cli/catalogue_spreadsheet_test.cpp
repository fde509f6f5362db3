#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/spreadsheet_words.h"
#include "cli/list_folder.h"

namespace commtest {

namespace {

using testing::IsProblem;
using testing::ListFolder;
using Kind = SpreadsheetResult::Kind;

class CatalogueSpreadsheet : public ::testing::Test {
  protected:
    ListFolder folder;
};

TEST_F(CatalogueSpreadsheet, TakesInstrumentsOrAllOfThemAndNotBoth) {
    const std::string line =
        "请给出 --instrument 或 --all 中的一个。用法请看 commtest-cli catalogue spreadsheet --help";
    EXPECT_TRUE(IsProblem(folder.Run({"spreadsheet"}), 2, line));
    EXPECT_TRUE(IsProblem(folder.Run({"spreadsheet", "--all", "--instrument", "X"}), 2, line));
}

TEST_F(CatalogueSpreadsheet, InstrumentThatNoProtocolHasIsUnknown) {
    EXPECT_TRUE(IsProblem(folder.Run({"spreadsheet", "--instrument", "没有"}), 2,
                          "目录中没有仪表 \"没有\"。可用名称请看 commtest-cli list instruments"));
    EXPECT_TRUE(folder.NamesBeginning("自动保存通讯记录/").isEmpty());
}

TEST_F(CatalogueSpreadsheet, CatalogueThatCannotBeOpenedIsAProblem) {
    folder.Write(QString::fromUtf8("通讯数据.mdb"), "no catalogue");
    EXPECT_EQ(folder.Run({"spreadsheet", "--all"}).status, 3);
}

TEST(SpreadsheetWords, OfEachFailureAreOneLineThatSaysWhatToDo) {
    const std::pair<SpreadsheetResult, const char*> rows[] = {
        {{}, ""},
        {{Kind::NoEngine}, "没有能写表格的程序，请安装 gnumeric 或 LibreOffice"},
        {{Kind::NoTemplate, u"/p/T.xls"},
         "没有模板 /p/T.xls，请放回；commtest-cli catalogue create 会补上缺少的文件"},
        {{Kind::UnreadableTemplate, u"E why"}, "模板读不出来: E why。请换成可用的 参数地址表.xls"},
        {{Kind::NoSheet, u"参数表"}, "模板中没有工作表 \"参数表\"，请检查 参数地址表.xls"},
        {{Kind::OpenElsewhere, u"/p/.~lock"}, "结果在另一个程序中打开，请先关闭: /p/.~lock"},
        {{Kind::NoRight, u"/p/R.xls"}, "没有写入的权限: /p/R.xls"},
        {{Kind::NoRoom, u"/p/R.xls"}, "磁盘已满，请腾出空间: /p/R.xls"},
        {{Kind::CannotWrite, u"why"}, "结果写不进去: why"},
        {{Kind::EngineFailed, u"E why"}, "表格程序出错: E why"},
        {{Kind::EngineHangs, u"ssconvert"}, "ssconvert 30 秒内没有写完，已被结束"}};
    for (const auto& [result, line] : rows) EXPECT_EQ(ToUtf8(WordsOnSpreadsheet(result)), line);
}

}  // namespace

}  // namespace commtest
