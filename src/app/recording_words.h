#pragma once

#include "replay/recording_file.h"

namespace commtest {

// Why a line of a recording file does not fit: "缺少 \"%\"". "%" stands for the member.
TextView PatternOf(RecordingFault::Kind kind);
Text FilledIn(TextView pattern, const RecordingFault& fault);

// Why a line of a recording file does not fit, as every face says it: "缺少 "row"".
Text WordsOnFault(const RecordingFault& fault);

}  // namespace commtest
