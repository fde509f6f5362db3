#pragma once

#include <string>
#include <vector>

#include "catalogue/list_lines.h"
#include "host/program_files.h"

namespace commtest {

inline constexpr int kChannels = 32;

// The list of an instrument of 32 channels, made of the lines of one of them.
struct ChannelTable {
    std::string bytes;            // of code page 936, with CR LF
    int rows = 0;                 // of a channel
    std::vector<int> lossyLines;  // of the template, from 1, of which the code page lacks a character
};

// Takes the lines of the template up to the first that holds END, or its last one. Error 13 for a length
// digit that is no number; UnreadableLine.
ChannelTable ChannelTableOf(ListLines& lines);

// Appends the table made of TQP.Dev to OutTQ.Dev, all of it or nothing, and gives it. Error 53 without the
// template, error 52 if the table cannot be written.
ChannelTable GenerateChannelTable(ProgramFiles& files);

}  // namespace commtest
