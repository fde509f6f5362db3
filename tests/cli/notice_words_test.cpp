#include "cli/notice_words.h"

#include <gtest/gtest.h>

namespace commtest {
namespace {

TEST(NoticeWordsOfTheCommandLine, SayWhatAndWhyInOneLine) {
    const struct {
        Notice notice;
        const char* words;
    } rows[] = {{{Notice::Kind::None}, ""},
                {{Notice::Kind::NoCatalogue, u"通讯数据.mdb"}, "目录 通讯数据.mdb 不能打开"},
                {{Notice::Kind::PortCaveat, u"停止位 1.5 不支持"}, "停止位 1.5 不支持"},
                {{Notice::Kind::PortLost, u"设备已拔出"}, "串口已断开,通讯停止！ 设备已拔出"},
                {{Notice::Kind::EndOfFile, u"ErrorComm.ini"}, "ErrorComm.ini 较长，只显示最后 1 MB"},
                {{Notice::Kind::NoUpdater, u"通讯更新.exe"}, "更新程序 通讯更新.exe 不能启动"}};
    for (const auto& row : rows) EXPECT_EQ(ToUtf8(WordsOn(row.notice)), row.words);
}

}  // namespace
}  // namespace commtest
