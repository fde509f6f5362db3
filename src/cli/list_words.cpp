#include "cli/list_words.h"

#include "catalogue/catalogue_lock.h"
#include "host_qt/path_problem.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

using Kind = ListFinding::Kind;

QString ToQt(TextView text) { return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())); }

QString WordsOnKind(Kind kind) { return ToQt(WordsOnFinding({.kind = kind})); }

// A name may be a whole line, with the blanks of its columns.
Text WithSingleBlanks(const Text& text) { return ToQt(text).simplified().toStdU16String(); }

QString WhatToDo(const RuntimeError& error) {
    if (const auto* const line = dynamic_cast<const UnreadableLine*>(&error)) {
        return WordsOnKind(KindOf(line->Why())) + u"。请存为代码页 936 或带标记的 UTF-8 文本"_s;
    }
    switch (error.Number()) {
        case RuntimeError::kPastEndOfFile: return WordsOnKind(Kind::EndsInsideBlock) + u"。请补上 END 行"_s;
        case RuntimeError::kTypeMismatch: return u"应为数字的字符不是数字。请改正编号或地址"_s;
        case RuntimeError::kFileNotFound: return u"请检查文件名"_s;
        case RuntimeError::kStore: return u"请结束正在使用目录的其他程序，检查磁盘空间和权限"_s;
        default: return u"文件读不出来。请检查文件和权限"_s;
    }
}

}  // namespace

QString WordsOn(const ListFinding& finding) {
    ListFinding shown = finding;
    for (Text* text : {&shown.name, &shown.value, &shown.other}) *text = WithSingleBlanks(*text);
    return ToQt(WordsOnFinding(shown));
}

QString LineOn(const ListFinding& finding, const QString& file) {
    return u"%1:%2: "_s.arg(file).arg(finding.line) + WordsOn(finding) + u"；"_s +
           ToQt(OutcomeOf(finding.kind));
}

QString WordsOnSize(int instruments, int parameters) {
    return u"%1 台仪表，%2 个参数"_s.arg(instruments).arg(parameters);
}

QString WordsOnListError(const RuntimeError& error, const QString& file, int line) {
    if (const auto* const unreadable = dynamic_cast<const UnreadableLine*>(&error)) line = unreadable->Line();
    const auto* const trouble = dynamic_cast<const FileTrouble*>(&error);
    if (trouble != nullptr && !trouble->Reason().isEmpty()) {
        return u"%1 读不出来: %2"_s.arg(file, trouble->Reason());
    }
    const QString place = line > 0 ? u"%1:%2"_s.arg(file).arg(line) : file;
    const QString what = QString::fromStdU16String(error.StandardMessage());
    if (dynamic_cast<const RewrittenElsewhere*>(&error) != nullptr) return u"%1 %2"_s.arg(what, file);
    return u"%1 %2: %3"_s.arg(what, place, WhatToDo(error));
}

}  // namespace commtest
