#include "window/catalogue_restore.h"

#include "window/list_window_bench.h"

namespace commtest::testing {
namespace {

class CatalogueRestoreTest : public ListWindow {
  protected:
    void ImportListOf(int instruments) {
        Put("TQ.ini", ListOf(instruments));
        RunImport();
        Press(Result(), "确定");
    }
    void Ask() { Window().Lists().Restore().Ask(); }
    FactBox& Box() { return *Window().findChildren<FactBox*>().last(); }
    const FactTable& Copies_() { return *FindNamed<FactTable>(Box(), "备份"); }
    int Count() { return InstrumentCatalogue(Form().outside.store).Size().instruments; }
};

TEST_F(CatalogueRestoreTest, QuestionNamesMomentAndSizeOfEachCopyTheYoungestFirst) {
    ImportListOf(2);
    ImportListOf(5);
    Ask();
    EXPECT_EQ(Read(Box()).toStdString(),
              "确定要恢复原目录吗？；恢复 仪表和参数；其它数据不变；现目录 5 台仪表，15 个参数；先存为备份");
    ASSERT_EQ(Copies_().rowCount(), 2);
    EXPECT_EQ(Cell(Copies_(), 0, 2).toStdString(), "2 台仪表，6 个参数");
    EXPECT_TRUE(QRegularExpression("^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d$")
                    .match(Cell(Copies_(), 0, 0))
                    .hasMatch());
    EXPECT_TRUE(Cell(Copies_(), 0, 1).endsWith(" KB"));
    EXPECT_TRUE(static_cast<QPushButton*>(FindButton(Box(), "否(&N)"))->isDefault());
    Press(Box(), "否(&N)");
    EXPECT_EQ(Count(), 5);
    EXPECT_EQ(Copies().size(), 2);
}

TEST_F(CatalogueRestoreTest, CopyComesBackAndThePresentStateIsCopiedFirst) {
    const int shipped = Count();
    const Text instrument = Form().InstrumentName();
    ImportListOf(2);
    Ask();
    Press(Box(), "是(&Y)");
    EXPECT_EQ(Count(), shipped);
    EXPECT_EQ(ToUtf8(Form().InstrumentName()), ToUtf8(instrument));
    EXPECT_EQ(Copies().size(), 2);
    EXPECT_TRUE(Notes().Text().startsWith("已恢复 ")) << Notes().Text().toStdString();
    Ask();
    EXPECT_EQ(Cell(Copies_(), 0, 2).toStdString(), "2 台仪表，6 个参数");
}

TEST_F(CatalogueRestoreTest, OldestOfThreeCopiesCanComeBack) {
    const int shipped = Count();
    for (const int instruments : {2, 3, 4}) ImportListOf(instruments);
    Ask();
    ASSERT_EQ(Copies_().rowCount(), 3);
    FindNamed<FactTable>(Box(), "备份")->selectRow(2);
    Press(Box(), "是(&Y)");
    EXPECT_TRUE(boxes.isEmpty());
    EXPECT_EQ(Count(), shipped);
}

TEST_F(CatalogueRestoreTest, ResultOfAnImportLeadsToTheQuestion) {
    Put("TQ.ini", ListOf(2));
    RunImport();
    Press(Result(), "恢复原目录...");
    EXPECT_EQ(Find<ImportResult>(), nullptr);
    EXPECT_TRUE(Read(Box()).startsWith("确定要恢复原目录吗？"));
}

TEST_F(CatalogueRestoreTest, NoteBehindAnImportLeadsToTheQuestion) {
    ImportListOf(2);
    Notes().findChild<QPushButton*>()->click();
    EXPECT_TRUE(Read(Box()).startsWith("确定要恢复原目录吗？"));
}

TEST_F(CatalogueRestoreTest, MenuOfToolsHasItsEntry) {
    ImportListOf(2);
    Tools().Button(10).menu()->actions().at(3)->trigger();
    EXPECT_TRUE(Read(Box()).startsWith("确定要恢复原目录吗？"));
}

TEST_F(CatalogueRestoreTest, FolderWithoutCopiesIsTold) {
    Ask();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().toStdString(), "没有可以恢复的备份！");
}

TEST_F(CatalogueRestoreTest, CopyThatHasBeenSpoiledChangesNothing) {
    ImportListOf(2);
    Ask();
    QFile copy(PathOf(Copies().first()));
    ASSERT_TRUE(copy.open(QIODevice::WriteOnly | QIODevice::Truncate));
    copy.write("no catalogue");
    copy.close();
    Press(Box(), "是(&Y)");
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().toStdString(), "没有恢复，目录不变！");
    EXPECT_TRUE(details.first().startsWith(Copies().first() + "：")) << details.first().toStdString();
    EXPECT_EQ(Count(), 2);
}

}  // namespace
}  // namespace commtest::testing
