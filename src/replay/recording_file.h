#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/instrument_catalogue.h"

namespace commtest {

// A recording as a file: UTF-8, one JSON object a line. The first line says what is recorded:
//   {"format": 1, "instrument": "...", "protocol": "...", "code": "11000101", "note": "..."}
// and each line behind it is an exchange, in the order in which they were stored:
//   {"date": "2024-05-06", "row": 6, "request": " 40 30", "reply": " 40 31", "valid": true}
// Members stand in any order, lines end with "\n" or "\r\n", empty lines say nothing.

// Why a file is no recording.
struct RecordingFault {
    enum class Kind {
        NotUtf8,
        NoHeader,       // the file is empty
        NoObject,       // the line is not one flat JSON object
        MissingMember,  // `member`, in this as in what follows
        UnknownMember,
        TwiceTheMember,
        WrongValue,
        OtherFormat,  // of a later version
    };
    Kind kind = Kind::NoObject;
    std::size_t line = 0;  // from 1
    std::string member = {};

    friend bool operator==(const RecordingFault&, const RecordingFault&) = default;
};

// What is thrown with it.
class RecordingFileError {
  public:
    explicit RecordingFileError(RecordingFault fault) : fault_(std::move(fault)) {}
    const RecordingFault& Fault() const { return fault_; }

  private:
    RecordingFault fault_;
};

// What a header says stands in the fields of the exchanges that it has in common with them.
struct RecordingFile {
    RecordedExchange head;  // instrument, protocol, note, code
    std::vector<RecordedExchange> exchanges;
};

// A RecordingFileError for the first line that does not fit. Frames are pairs of hexadecimal digits between
// blanks and come out as HexText; a row is 0 to 32767. Any bytes may come.
RecordingFile ReadRecordingFile(std::string_view bytes);

// A row that is no number is written 0.
std::string WrittenRecordingFile(const RecordingFile& recording);

}  // namespace commtest
