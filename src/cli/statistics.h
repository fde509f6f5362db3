#pragma once

#include <QStringList>
#include <string>

#include "cli/table.h"

namespace commtest {

class LineSession;

// What a run has counted.
struct Statistics {
    std::int64_t checkErrors = 0;
    std::int64_t exchanges = 0;  // without the requests for a further part of a reply
    std::int64_t frames = 0;
    std::int64_t incomplete = 0;
    std::int64_t noReply = 0;
    std::int64_t reconnects = 0;   // times that a vanished port has come back
    std::int64_t repetitions = 0;  // of reads, which are exchanges of their own
};

Statistics StatisticsOf(LineSession& line);

void PutStatistics(const Statistics& statistics, JsonWriter& json);

// One line in the words of the session.
std::string WordsOn(LineSession& line);

// As a file of its own: the words, a table of one row, or an object.
std::string StatisticsFile(LineSession& line, Format format);

// Whether a text is such a file.
bool IsStatisticsFile(const QByteArray& bytes);

}  // namespace commtest
