#include "app/finding_words.h"

#include <algorithm>
#include <array>

namespace commtest {

namespace {

using Kind = ListFinding::Kind;

struct Words {
    Kind kind;
    TextView key;
    TextView head;
    TextView what;
    TextView outcome;
};

constexpr TextView kNothingChanges = u"导入在这里出错结束，目录不改变";
constexpr TextView kStoredAsItIs = u"照原样导入";

constexpr std::array kWords = {
    Words{Kind::NameEndsBlock, u"nameEndsBlock", u"名称含有 END", u"\"%n\" 含有 END",
          u"这台仪表的参数到此为止，以下的行到 DEVICE 行之前都不导入"},
    Words{Kind::NameEndsList, u"nameEndsList", u"仪表名称含有 END", u"\"%n\" 含有 DEVICE 和 END",
          u"导入到此为止，以下的仪表都不导入"},
    Words{Kind::HeadInsideBlock, u"headInsideBlock", u"仪表之前没有 END", u"\"%n\" 之前的仪表没有 END 行",
          u"这一行成为那台仪表的参数，以下的参数也归它"},
    Words{Kind::RemarkInsideBlock, u"remarkInsideBlock", u"参数之间的注释", u"\"%n\" 是参数之间的注释",
          u"成为一个参数"},
    Words{Kind::NameCutToNothing, u"nameCutToNothing", u"名称以地址开头",
          u"行首的 \"%v\" 是四个十六进制字符，作为地址", u"名称为空，这一行不导入"},
    Words{Kind::NoAddress, u"noAddress", u"没有地址", u"\"%n\" 没有地址", u"导入时长度为空，地址为 0"},
    Words{Kind::DecimalPointNoNumber, u"decimalPointNoNumber", u"小数点不是十六进制数",
          u"\"%n\" 的小数点 \"%v\" 不是十六进制数", u"照原样导入，导入后列出名称"},
    Words{Kind::AddressTwice, u"addressTwice", u"地址相同", u"\"%n\" 的地址 %v 与 \"%o\" 相同",
          u"两个参数都导入"},
    Words{Kind::AddressOverlaps, u"addressOverlaps", u"地址重叠", u"\"%n\" 的地址 %v 与 \"%o\" 重叠",
          u"两个参数都导入"},
    Words{Kind::AttributeUnknown, u"attributeUnknown", u"属性没有意义",
          u"\"%n\" 的属性 \"%v\" 不是由 R、W、S、D 组成", kStoredAsItIs},
    Words{Kind::LimitNoNumber, u"limitNoNumber", u"上下限不是数", u"\"%n\" 的下限或上限 \"%v\" 不是数",
          u"照原样导入，写入时不按它检查"},
    Words{Kind::TooManyFields, u"tooManyFields", u"字段过多", u"\"%n\" 的字段过多", u"多出的字段不导入"},
    Words{Kind::NameTooLong, u"nameTooLong", u"名称超过 40 字节", u"\"%n\" 超过 40 字节",
          u"全部导入，导出时后面的列右移"},
    Words{Kind::ProtocolUnknown, u"protocolUnknown", u"没有这个协议代码",
          u"\"%n\" 的编号以 %v 开头，没有这个协议代码", u"作为 TQ仪表协议 的仪表导入"},
    Words{Kind::ClassUnknown, u"classUnknown", u"没有这个类别", u"\"%n\" 的类别 \"%v\" 目录中没有",
          u"类别和类别ID 都记为这两个字符"},
    Words{Kind::NoTypeLine, u"noTypeLine", u"没有 TYPE 行", u"\"%n\" 之后 30 行中没有 TYPE 行",
          u"第 30 行作为 TYPE 行，之前的行不导入"},
    Words{Kind::InstrumentTwice, u"instrumentTwice", u"仪表名称相同", u"仪表 \"%n\" 前面已有",
          u"两台都导入，相邻时导出为一台"},
    Words{Kind::NoCodePage, u"noCodePage", u"不是代码页 936", u"有代码页 936 中没有的字节",
          u"这些字节导入后是 U+FFFD"},
    Words{Kind::LooksLikeUtf8, u"looksLikeUtf8", u"可能是 UTF-8", u"文件像是没有标记的 UTF-8",
          u"按代码页 936 导入，汉字会成为别的字。请加上标记，或存为代码页 936"},
    Words{Kind::CodeNoNumber, u"codeNoNumber", u"编号不以数字开头", u"TYPE 行的编号不以数字开头",
          kNothingChanges},
    Words{Kind::EndsInsideBlock, u"endsInsideBlock", u"文件在仪表中结束",
          u"文件在一台仪表中结束，没有 END 行", kNothingChanges},
    Words{Kind::LineTooLong, u"lineTooLong", u"行超过 64 KB", u"这一行超过 64 KB", kNothingChanges},
    Words{Kind::HoldsNul, u"holdsNul", u"含有 NUL 字节", u"这一行含有 NUL 字节", kNothingChanges},
    Words{Kind::IsUtf16, u"isUtf16", u"是 UTF-16", u"文件是 UTF-16", kNothingChanges},
};

const Words& WordsOf(Kind kind) {
    return *std::find_if(kWords.begin(), kWords.end(),
                         [kind](const Words& words) { return words.kind == kind; });
}

}  // namespace

TextView KeyOf(Kind kind) { return WordsOf(kind).key; }

TextView HeadOf(Kind kind) { return WordsOf(kind).head; }

TextView OutcomeOf(Kind kind) { return WordsOf(kind).outcome; }

TextView PatternOf(Kind kind) { return WordsOf(kind).what; }

Text FilledIn(TextView pattern, const ListFinding& finding) {
    Text words;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != u'%') {
            words += pattern[i];
            continue;
        }
        const char16_t field = pattern[++i];
        words += field == u'n' ? finding.name : field == u'v' ? finding.value : finding.other;
    }
    return words;
}

Text WordsOnFinding(const ListFinding& finding) { return FilledIn(PatternOf(finding.kind), finding); }

}  // namespace commtest
