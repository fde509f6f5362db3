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
};

}  // namespace commtest
