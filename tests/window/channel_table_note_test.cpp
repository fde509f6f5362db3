#include "window/channel_table_note.h"

#include "window/list_window_bench.h"

namespace commtest::testing {
namespace {

class ChannelTableNoteTest : public ListWindow {
  protected:
    void Press9() {
        Tools().Button(9).click();
        QApplication::processEvents();
    }
};

TEST_F(ChannelTableNoteTest, NoteSaysHowMuchWasWrittenAndHowLongTheFileIs) {
    Put("TQP.Dev", {"001 通道%测量值 2010 0 D", "002 通道%报警值 2012 0 RW", "END"});
    Press9();
    EXPECT_EQ(Notes().Text().toStdString(), "已写 64 行到 OutTQ.Dev，现有 2 KB");
    EXPECT_EQ(QFile(PathOf("OutTQ.Dev")).size(), 1760);
    Press9();
    EXPECT_EQ(Notes().Text().toStdString(), "已写 64 行到 OutTQ.Dev，现有 3 KB");
}

TEST_F(ChannelTableNoteTest, NoteOpensTheFolder) {
    Put("TQP.Dev", {"001 通道%测量值 2010 0 D", "END"});
    QString opened;
    MakeChannelTable(Window().Views(), Notes(), [&opened](const QString& folder) { opened = folder; });
    FindButton(Notes(), "打开文件夹")->click();
    EXPECT_EQ(opened, options.folder);
}

TEST_F(ChannelTableNoteTest, CharactersThatTheCodePageLacksAreTold) {
    Put("TQP.Dev", {"001 通道%测量值😀 2010 0 D", "END"});
    Press9();
    EXPECT_TRUE(Notes().Text().endsWith("；模板第 1 行有代码页 936 中没有的字符，已写成 ?"))
        << Notes().Text().toStdString();
}

TEST_F(ChannelTableNoteTest, MissingTemplateIsToldWithWhatToDo) {
    Press9();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().toStdString(), "实时错误 '53':\r\n\r\n文件未找到");
    EXPECT_EQ(details.first().toStdString(), "TQP.Dev：没有这个文件。请把它放进程序文件夹");
    EXPECT_FALSE(QFile::exists(PathOf("OutTQ.Dev")));
}

TEST_F(ChannelTableNoteTest, LengthThatIsNoNumberIsToldWithWhatToDo) {
    Put("TQP.Dev", {"001 通道%测量值 A010 0 D", "END"});
    Press9();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(details.first().toStdString(), "TQP.Dev：地址前的长度不是数字。请改正模板中的地址");
}

}  // namespace
}  // namespace commtest::testing
