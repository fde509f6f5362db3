#include "window/list_words.h"

#include <cmath>

#include "host_qt/words.h"
#include "runtime/runtime_error.h"
#include "window/core_words.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

using Kind = ListFinding::Kind;

QString PlaceOf(const QString& file, int line) {
    return line > 0 ? Words::tr("%1 第 %2 行").arg(file).arg(line) : file;
}

QString ReasonOf(const ListProblem& problem) {
    if (problem.unreadable) {
        const Kind kind = KindOf(*problem.unreadable);
        return WordsOn(ListFinding{.kind = kind}) + Words::tr("。") + RemedyOf(kind);
    }
    if (problem.isRewrittenElsewhere) return Words::tr("另一个程序正在改写服务器上的目录，请等它结束后再试");
    if (problem.isOfNewerCatalogue) return Words::tr("目录是较新的程序建立的，本程序只能读取它，请升级程序");
    switch (problem.number) {
        case RuntimeError::kPastEndOfFile:
            return Words::tr("文件在一台仪表中结束。") + RemedyOf(Kind::EndsInsideBlock);
        case RuntimeError::kTypeMismatch: return Words::tr("应为数字的字符不是数字。请改正编号或地址");
        case RuntimeError::kFileNotFound: return Words::tr("没有这个文件。请把它放进程序文件夹");
        case RuntimeError::kStore:
            return ToQt(problem.message) + Words::tr("。请结束正在使用目录的其他程序，检查磁盘空间和权限");
        default: return Words::tr("文件不能读写。请检查磁盘空间和权限，以及是否已在别处打开");
    }
}

}  // namespace

QString WordsOn(const ListFinding& finding) {
    const Text pattern = Translated(PatternOf(finding.kind)).toStdU16String();
    return ToQt(FilledIn(pattern, finding));
}

QString RemedyOf(Kind kind) {
    switch (kind) {
        case Kind::CodeNoNumber: return Words::tr("请改正编号");
        case Kind::EndsInsideBlock: return Words::tr("请补上 END 行");
        case Kind::LineTooLong:
        case Kind::HoldsNul:
        case Kind::IsUtf16: return Words::tr("请存为代码页 936 或带标记的 UTF-8 文本");
        default: return {};
    }
}

QString WordsOn(const ListFinding& finding, const QString& file) {
    return Words::tr("%1：%2。%3").arg(PlaceOf(file, finding.line), WordsOn(finding), RemedyOf(finding.kind));
}

QString WordsOn(const ListProblem& problem, const QString& file) {
    return Words::tr("%1：%2").arg(PlaceOf(file, problem.line), ReasonOf(problem));
}

QString WordsOnSize(int instruments, int parameters) {
    return Words::tr("%1 台仪表", nullptr, instruments).arg(GroupedNumber(instruments)) + Words::tr("，") +
           Words::tr("%1 个参数", nullptr, parameters).arg(GroupedNumber(parameters));
}

QString WordsOnBytes(std::uint64_t size) {
    constexpr double kKilo = 1024;
    const auto bytes = static_cast<double>(size);
    if (bytes < kKilo) return Words::tr("%1 字节").arg(size);
    if (bytes < kKilo * kKilo) return u"%1 KB"_s.arg(std::lround(bytes / kKilo));
    return u"%1 MB"_s.arg(bytes / (kKilo * kKilo), 0, 'f', 1);
}

}  // namespace commtest
