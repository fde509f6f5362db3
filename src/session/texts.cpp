#include "session/texts.h"

namespace commtest {

const Texts kChineseTexts = {
    .beforeVersion = u"衡岫TQ系列仪联演示软件(TQ通讯协议) V ",
    .start = u"开始通讯",
    .stop = u"停止通讯",
    .beforeSendCount = u"第 ",
    .beforeInstrument = u" 次, 向 ",
    .beforeSent = u" 发送: ",
    .beforeReceived = u"   收到: ",
    .beforeTotal = u"总计通讯: ",
    .behindTotal = u" 次",
    .beforePort = u"串口设置:  COM",
    .beforePortState = u"   状态:  ",
    .portOpen = u"开启",
    .portClosed = u"关闭",
    .asciiCheckRight = u"CRC校验正确  ",
    .asciiCheckWrong = u"CRC校验错误  ",
    .asciiBeforeReadAddress = u"成功读取 ",
    .asciiBehindReadAddress = u"# 仪表的静态/动态数据",
    .asciiNoAnswer = u"仪表无应答  注意：仪表无应答或返回软件无法识别的数据",
};

}  // namespace commtest
