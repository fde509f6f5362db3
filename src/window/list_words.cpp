#include "window/list_words.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "runtime/runtime_error.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

using Kind = ListFinding::Kind;

// In `what` and `outcome` %n stands for the name of the finding, %v for its value, %o for the other name.
struct Words {
    Kind kind;
    QStringView head;
    QStringView what;
    QStringView outcome;
};

constexpr QStringView kNothingChanges = u"导入在这里出错结束，目录不改变";
constexpr QStringView kStoredAsItIs = u"照原样导入";

constexpr std::array kWords = {
    Words{Kind::NameEndsBlock, u"名称含有 END", u"\"%n\" 含有 END",
          u"这台仪表的参数到此为止，以下的行到 DEVICE 行之前都不导入"},
    Words{Kind::NameEndsList, u"仪表名称含有 END", u"\"%n\" 含有 DEVICE 和 END",
          u"导入到此为止，以下的仪表都不导入"},
    Words{Kind::HeadInsideBlock, u"仪表之前没有 END", u"\"%n\" 之前的仪表没有 END 行",
          u"这一行成为那台仪表的参数，以下的参数也归它"},
    Words{Kind::RemarkInsideBlock, u"参数之间的注释", u"\"%n\" 是参数之间的注释", u"成为一个参数"},
    Words{Kind::NameCutToNothing, u"名称以地址开头", u"行首的 \"%v\" 是四个十六进制字符，作为地址",
          u"名称为空，这一行不导入"},
    Words{Kind::NoAddress, u"没有地址", u"\"%n\" 没有地址", u"导入时长度为空，地址为 0"},
    Words{Kind::DecimalPointNoNumber, u"小数点不是十六进制数", u"\"%n\" 的小数点 \"%v\" 不是十六进制数",
          u"照原样导入，导入后列出名称"},
    Words{Kind::AddressTwice, u"地址相同", u"\"%n\" 的地址 %v 与 \"%o\" 相同", u"两个参数都导入"},
    Words{Kind::AddressOverlaps, u"地址重叠", u"\"%n\" 的地址 %v 与 \"%o\" 重叠", u"两个参数都导入"},
    Words{Kind::AttributeUnknown, u"属性没有意义", u"\"%n\" 的属性 \"%v\" 不是由 R、W、S、D 组成",
          kStoredAsItIs},
    Words{Kind::LimitNoNumber, u"上下限不是数", u"\"%n\" 的下限或上限 \"%v\" 不是数",
          u"照原样导入，写入时不按它检查"},
    Words{Kind::TooManyFields, u"字段过多", u"\"%n\" 的字段过多", u"多出的字段不导入"},
    Words{Kind::NameTooLong, u"名称超过 40 字节", u"\"%n\" 超过 40 字节", u"全部导入，导出时后面的列右移"},
    Words{Kind::ProtocolUnknown, u"没有这个协议代码", u"\"%n\" 的编号以 %v 开头，没有这个协议代码",
          u"作为 TQ仪表协议 的仪表导入"},
    Words{Kind::ClassUnknown, u"没有这个类别", u"\"%n\" 的类别 \"%v\" 目录中没有",
          u"类别和类别ID 都记为这两个字符"},
    Words{Kind::NoTypeLine, u"没有 TYPE 行", u"\"%n\" 之后 30 行中没有 TYPE 行",
          u"第 30 行作为 TYPE 行，之前的行不导入"},
    Words{Kind::InstrumentTwice, u"仪表名称相同", u"仪表 \"%n\" 前面已有", u"两台都导入，相邻时导出为一台"},
    Words{Kind::NoCodePage, u"不是代码页 936", u"有代码页 936 中没有的字节", u"这些字节导入后是 U+FFFD"},
    Words{Kind::LooksLikeUtf8, u"可能是 UTF-8", u"文件像是没有标记的 UTF-8",
          u"按代码页 936 导入，汉字会成为别的字。请加上标记，或存为代码页 936"},
    Words{Kind::CodeNoNumber, u"编号不以数字开头", u"TYPE 行的编号不以数字开头", kNothingChanges},
    Words{Kind::EndsInsideBlock, u"文件在仪表中结束", u"文件在一台仪表中结束，没有 END 行", kNothingChanges},
    Words{Kind::LineTooLong, u"行超过 64 KB", u"这一行超过 64 KB", kNothingChanges},
    Words{Kind::HoldsNul, u"含有 NUL 字节", u"这一行含有 NUL 字节", kNothingChanges},
    Words{Kind::IsUtf16, u"是 UTF-16", u"文件是 UTF-16", kNothingChanges},
};

const Words& WordsOf(Kind kind) {
    return *std::find_if(kWords.begin(), kWords.end(),
                         [kind](const Words& words) { return words.kind == kind; });
}

QString Filled(QStringView pattern, const ListFinding& finding) {
    QString filled;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        if (pattern[i] != u'%') {
            filled += pattern[i];
            continue;
        }
        const QChar field = pattern[++i];
        filled += ToQt(field == u'n' ? finding.name : field == u'v' ? finding.value : finding.other);
    }
    return filled;
}

Kind KindOf(UnreadableLine::Reason reason) {
    switch (reason) {
        case UnreadableLine::Reason::TooLong: return Kind::LineTooLong;
        case UnreadableLine::Reason::HoldsNul: return Kind::HoldsNul;
        case UnreadableLine::Reason::IsUtf16: break;
    }
    return Kind::IsUtf16;
}

QString PlaceOf(const QString& file, int line) {
    return line > 0 ? u"%1 第 %2 行"_s.arg(file).arg(line) : file;
}

QString ReasonOf(const ListProblem& problem) {
    if (problem.unreadable) {
        const Kind kind = KindOf(*problem.unreadable);
        return WordsOf(kind).what.toString() + u"。"_s + RemedyOf(kind);
    }
    switch (problem.number) {
        case RuntimeError::kPastEndOfFile:
            return u"文件在一台仪表中结束。"_s + RemedyOf(Kind::EndsInsideBlock);
        case RuntimeError::kTypeMismatch: return u"应为数字的字符不是数字。请改正编号或地址"_s;
        case RuntimeError::kFileNotFound: return u"没有这个文件。请把它放进程序文件夹"_s;
        case RuntimeError::kStore:
            return ToQt(problem.message) + u"。请结束正在使用目录的其他程序，检查磁盘空间和权限"_s;
        default: return u"文件不能读写。请检查磁盘空间和权限，以及是否已在别处打开"_s;
    }
}

}  // namespace

QString HeadOf(Kind kind) { return WordsOf(kind).head.toString(); }

QString OutcomeOf(Kind kind) { return WordsOf(kind).outcome.toString(); }

QString WordsOn(const ListFinding& finding) { return Filled(WordsOf(finding.kind).what, finding); }

QString RemedyOf(Kind kind) {
    switch (kind) {
        case Kind::CodeNoNumber: return u"请改正编号"_s;
        case Kind::EndsInsideBlock: return u"请补上 END 行"_s;
        case Kind::LineTooLong:
        case Kind::HoldsNul:
        case Kind::IsUtf16: return u"请存为代码页 936 或带标记的 UTF-8 文本"_s;
        default: return {};
    }
}

QString WordsOn(const ListFinding& finding, const QString& file) {
    return u"%1：%2。%3"_s.arg(PlaceOf(file, finding.line), WordsOn(finding), RemedyOf(finding.kind));
}

QString WordsOn(const ListProblem& problem, const QString& file) {
    return u"%1：%2"_s.arg(PlaceOf(file, problem.line), ReasonOf(problem));
}

QString WordsOnSize(int instruments, int parameters) {
    return u"%1 台仪表，%2 个参数"_s.arg(GroupedNumber(instruments), GroupedNumber(parameters));
}

QString GroupedNumber(qint64 number) {
    QString digits = QString::number(number);
    for (qsizetype place = digits.size() - 3; place > 0; place -= 3) digits.insert(place, u',');
    return digits;
}

QString WordsOnBytes(std::uint64_t size) {
    constexpr double kKilo = 1024;
    const auto bytes = static_cast<double>(size);
    if (bytes < kKilo) return u"%1 字节"_s.arg(size);
    if (bytes < kKilo * kKilo) return u"%1 KB"_s.arg(std::lround(bytes / kKilo));
    return u"%1 MB"_s.arg(bytes / (kKilo * kKilo), 0, 'f', 1);
}

}  // namespace commtest
