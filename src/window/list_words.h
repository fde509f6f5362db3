#pragma once

#include <QString>

#include "app/finding_words.h"
#include "app/list_problem.h"

namespace commtest {

// How the window words parameter lists.

QString WordsOn(const ListFinding& finding);

// What to do about a list that an import would end at; empty of any other finding.
QString RemedyOf(ListFinding::Kind kind);

// What was wrong and what to do: "TQ.ini 第 118 行：…".
QString WordsOn(const ListFinding& finding, const QString& file);
QString WordsOn(const ListProblem& problem, const QString& file);

QString WordsOnSize(int instruments, int parameters);  // "213 台仪表，8,391 个参数"

QString WordsOnBytes(std::uint64_t size);  // "412 KB", "6.1 MB"

}  // namespace commtest
