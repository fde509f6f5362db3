#include "window/notice_words.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

struct Row {
    Notice notice;
    const char* words;
    const char* remedy;
};

TEST(NoticeWords, SayWhatHappenedAndBehindItWhyAndWhatToDo) {
    const Row rows[] = {
        {{Notice::Kind::None}, "", ""},
        {{Notice::Kind::NoCatalogue, u"folder/通讯数据.mdb"}, "没有打开仪表目录：folder/通讯数据.mdb", ""},
        {{Notice::Kind::PortCaveat, u"停止位 1.5 不支持"}, "停止位 1.5 不支持", ""},
        {{Notice::Kind::PortLost, u"设备已拔出"}, "串口已断开,通讯停止！", "设备已拔出"},
        {{Notice::Kind::EndOfFile, u"ErrorComm.ini"}, "ErrorComm.ini 较长，只显示最后 1 MB", ""},
        {{Notice::Kind::NoUpdater, u"通讯更新.exe"},
         "更新程序不能启动！",
         "通讯更新.exe 不存在或不能运行。现在继续使用本版本，请联系管理员更新"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(WordsOn(row.notice).toStdString(), row.words);
        EXPECT_EQ(RemedyOf(row.notice).toStdString(), row.remedy);
    }
}

}  // namespace
}  // namespace commtest
