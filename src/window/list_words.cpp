#include "window/list_words.h"

#include <cmath>

#include "runtime/runtime_error.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

using Kind = ListFinding::Kind;

QString PlaceOf(const QString& file, int line) {
    return line > 0 ? u"%1 第 %2 行"_s.arg(file).arg(line) : file;
}

QString ReasonOf(const ListProblem& problem) {
    if (problem.unreadable) {
        const Kind kind = KindOf(*problem.unreadable);
        return ToQt(WordsOnFinding({.kind = kind})) + u"。"_s + RemedyOf(kind);
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

QString WordsOn(const ListFinding& finding) { return ToQt(WordsOnFinding(finding)); }

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

QString WordsOnBytes(std::uint64_t size) {
    constexpr double kKilo = 1024;
    const auto bytes = static_cast<double>(size);
    if (bytes < kKilo) return u"%1 字节"_s.arg(size);
    if (bytes < kKilo * kKilo) return u"%1 KB"_s.arg(std::lround(bytes / kKilo));
    return u"%1 MB"_s.arg(bytes / (kKilo * kKilo), 0, 'f', 1);
}

}  // namespace commtest
