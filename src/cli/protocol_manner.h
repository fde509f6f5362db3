#pragma once

#include <QString>
#include <cstdint>

#include "runtime/text.h"

namespace commtest {

class MainForm;

// What the command line has to know of the protocol in use beyond its frames: where reading row by row
// begins, how a row is read back, and where its decimals stand.
struct ProtocolManner {
    std::int16_t (*firstRow)(const MainForm& form);

    // Why a single read does not reach a row; empty if it does.
    QString (*whyUnreadable)(const MainForm& form, int row);

    // The row that holds the decimals of a row, 0 if it has its own.
    int (*decimalsRow)(const MainForm& form, int row);

    // What the parser notes in the record line behind a good single read.
    TextView goodRead;
};

const ProtocolManner& MannerOf(const MainForm& form);

}  // namespace commtest
