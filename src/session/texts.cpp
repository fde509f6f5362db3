#include "session/texts.h"

#include "session/wall_clock.h"

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
    .clockPanel = ClockPanelText,
    .parameterHeadings = {u"序号", u"参数名称", u"地址", u"长度", u"属性", u"小数点", u"RE 读值",
                          u"RR/RD 读值", u"计算值", u"小数点修正值", u"修改值"},
    .captions = {.advancedSettings = u"高级设置",
                 .anyLength = u"任意长度",
                 .stopScrolling = u"停止滚屏",
                 .capture = u"数据采集",
                 .replay = u"数据演示",
                 .saveRecord = u"自动保存记录",
                 .saveErrors = u"保存错误记录",
                 .search = u"仪表搜索设置",
                 .searchStart = u"开始搜索",
                 .searchClose = u"放弃搜索",
                 .searchPort = u"串口编号",
                 .searchEndAddress = u"结束地址",
                 .searchStartAddress = u"开始地址",
                 .searchBaudRates = u"波特率范围",
                 .instrumentSelection = u"仪表选择",
                 .instrumentName = u"名称",
                 .instrumentAddress = u"仪表地址",
                 .parameterCount = u"参数个数",
                 .portFields = {u"串口号：", u"波特率：", u"数据位：", u"校验位：", u"停止位："},
                 .hexadecimal = u" 十六进制方式",
                 .ascii = u" ASCii码方式",
                 .displaySwitch = u"显示切换"},
};

}  // namespace commtest
