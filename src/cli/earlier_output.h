#pragma once

#include <QIODevice>
#include <QString>

namespace commtest {

// What an option writes into the file that it names.
enum class OutputKind { Record, Statistics, Trace, Recording, ParameterList, ChannelTable };

QString NameOf(OutputKind kind);  // "通讯记录"

// Whether the beginning of a file, which is open and not empty, was written by an earlier call: its first
// block has to be one of that kind from end to end.
bool IsEarlierOutput(OutputKind kind, QIODevice& file);

}  // namespace commtest
