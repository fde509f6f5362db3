#include "cli/recording_choice.h"

namespace commtest {

using namespace Qt::StringLiterals;

const Option kNoteOption = {u"note", u"说明", u"演示数据的说明，用大写"};

Text NoteOf(const Arguments& arguments, QStringView option) {
    return UCase(arguments.Value(option).toStdU16String());
}

Problem NoRecording(const Text& instrument, const Text& note) {
    return {ExitStatus::BadUsage,
            u"没有仪表 \"%1\"、说明 \"%2\" 的演示数据。已有的请看 commtest-cli recordings list"_s.arg(
                QString::fromStdU16String(instrument), QString::fromStdU16String(note))};
}

}  // namespace commtest
