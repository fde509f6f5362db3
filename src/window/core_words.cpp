#include "window/core_words.h"

#include "host_qt/words.h"
#include "window/pieces.h"

namespace commtest {

namespace {

// They stand in the core, where both faces find them; named here, the translations hold them.
[[maybe_unused]] constexpr const char* kCoreWords[] = {
    QT_TRANSLATE_NOOP("Words", "名称含有 END"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 含有 END"),
    QT_TRANSLATE_NOOP("Words", "这台仪表的参数到此为止，以下的行到 DEVICE 行之前都不导入"),
    QT_TRANSLATE_NOOP("Words", "仪表名称含有 END"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 含有 DEVICE 和 END"),
    QT_TRANSLATE_NOOP("Words", "导入到此为止，以下的仪表都不导入"),
    QT_TRANSLATE_NOOP("Words", "仪表之前没有 END"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 之前的仪表没有 END 行"),
    QT_TRANSLATE_NOOP("Words", "这一行成为那台仪表的参数，以下的参数也归它"),
    QT_TRANSLATE_NOOP("Words", "参数之间的注释"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 是参数之间的注释"),
    QT_TRANSLATE_NOOP("Words", "成为一个参数"),
    QT_TRANSLATE_NOOP("Words", "名称以地址开头"),
    QT_TRANSLATE_NOOP("Words", "行首的 \"%v\" 是四个十六进制字符，作为地址"),
    QT_TRANSLATE_NOOP("Words", "名称为空，这一行不导入"),
    QT_TRANSLATE_NOOP("Words", "没有地址"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 没有地址"),
    QT_TRANSLATE_NOOP("Words", "导入时长度为空，地址为 0"),
    QT_TRANSLATE_NOOP("Words", "小数点不是十六进制数"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的小数点 \"%v\" 不是十六进制数"),
    QT_TRANSLATE_NOOP("Words", "照原样导入，导入后列出名称"),
    QT_TRANSLATE_NOOP("Words", "地址相同"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的地址 %v 与 \"%o\" 相同"),
    QT_TRANSLATE_NOOP("Words", "两个参数都导入"),
    QT_TRANSLATE_NOOP("Words", "地址重叠"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的地址 %v 与 \"%o\" 重叠"),
    QT_TRANSLATE_NOOP("Words", "属性没有意义"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的属性 \"%v\" 不是由 R、W、S、D 组成"),
    QT_TRANSLATE_NOOP("Words", "上下限不是数"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的下限或上限 \"%v\" 不是数"),
    QT_TRANSLATE_NOOP("Words", "照原样导入，写入时不按它检查"),
    QT_TRANSLATE_NOOP("Words", "字段过多"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的字段过多"),
    QT_TRANSLATE_NOOP("Words", "多出的字段不导入"),
    QT_TRANSLATE_NOOP("Words", "名称超过 40 字节"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 超过 40 字节"),
    QT_TRANSLATE_NOOP("Words", "全部导入，导出时后面的列右移"),
    QT_TRANSLATE_NOOP("Words", "没有这个协议代码"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的编号以 %v 开头，没有这个协议代码"),
    QT_TRANSLATE_NOOP("Words", "作为 TQ仪表协议 的仪表导入"),
    QT_TRANSLATE_NOOP("Words", "没有这个类别"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 的类别 \"%v\" 目录中没有"),
    QT_TRANSLATE_NOOP("Words", "类别和类别ID 都记为这两个字符"),
    QT_TRANSLATE_NOOP("Words", "没有 TYPE 行"),
    QT_TRANSLATE_NOOP("Words", "\"%n\" 之后 30 行中没有 TYPE 行"),
    QT_TRANSLATE_NOOP("Words", "第 30 行作为 TYPE 行，之前的行不导入"),
    QT_TRANSLATE_NOOP("Words", "仪表名称相同"),
    QT_TRANSLATE_NOOP("Words", "仪表 \"%n\" 前面已有"),
    QT_TRANSLATE_NOOP("Words", "两台都导入，相邻时导出为一台"),
    QT_TRANSLATE_NOOP("Words", "不是代码页 936"),
    QT_TRANSLATE_NOOP("Words", "有代码页 936 中没有的字节"),
    QT_TRANSLATE_NOOP("Words", "这些字节导入后是 U+FFFD"),
    QT_TRANSLATE_NOOP("Words", "可能是 UTF-8"),
    QT_TRANSLATE_NOOP("Words", "文件像是没有标记的 UTF-8"),
    QT_TRANSLATE_NOOP("Words", "按代码页 936 导入，汉字会成为别的字。请加上标记，或存为代码页 936"),
    QT_TRANSLATE_NOOP("Words", "编号不以数字开头"),
    QT_TRANSLATE_NOOP("Words", "TYPE 行的编号不以数字开头"),
    QT_TRANSLATE_NOOP("Words", "文件在仪表中结束"),
    QT_TRANSLATE_NOOP("Words", "文件在一台仪表中结束，没有 END 行"),
    QT_TRANSLATE_NOOP("Words", "行超过 64 KB"),
    QT_TRANSLATE_NOOP("Words", "这一行超过 64 KB"),
    QT_TRANSLATE_NOOP("Words", "含有 NUL 字节"),
    QT_TRANSLATE_NOOP("Words", "这一行含有 NUL 字节"),
    QT_TRANSLATE_NOOP("Words", "是 UTF-16"),
    QT_TRANSLATE_NOOP("Words", "文件是 UTF-16"),
    QT_TRANSLATE_NOOP("Words", "导入在这里出错结束，目录不改变"),
    QT_TRANSLATE_NOOP("Words", "照原样导入"),
    QT_TRANSLATE_NOOP("Words", "不是 UTF-8 文字"),
    QT_TRANSLATE_NOOP("Words", "没有文件头"),
    QT_TRANSLATE_NOOP("Words", "缺少 \"%\""),
    QT_TRANSLATE_NOOP("Words", "不认识 \"%\""),
    QT_TRANSLATE_NOOP("Words", "\"%\" 出现两次"),
    QT_TRANSLATE_NOOP("Words", "\"%\" 的值不对"),
    QT_TRANSLATE_NOOP("Words", "文件格式的版本不是 1"),
    QT_TRANSLATE_NOOP("Words", "不是一个 JSON 对象"),
};

}  // namespace

QString Translated(TextView words) { return Words::tr(ToQt(words).toUtf8().constData()); }

}  // namespace commtest
