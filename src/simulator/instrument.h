#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/native_request.h"
#include "simulator/parameter.h"

namespace simulator {

struct Answer {
    enum class Outcome { kRead, kReadRefused, kWriteAccepted, kWriteRefused };

    Outcome outcome{};
    std::string frame;
};

// One instrument on the line: frames in, frames out. A refused request is answered with "**", an accepted
// write with "##"; a written value replaces the parameter's behaviour.
class Instrument {
  public:
    // `description.address` is set. Parameters without a behaviour get one. A static reply holds at most
    // `partLength` data bytes a part, but at least one parameter; 0 is no limit.
    Instrument(InstrumentDescription description, std::size_t partLength);

    // `frame` begins with "@" and is without its line end. Nothing if it is not for this instrument, its
    // check word is wrong or it is no request. Any frame on the line ends a reply in parts.
    std::optional<Answer> AnswerFrame(std::string_view frame, std::int64_t timeMs);

    // The next part of the reply that the last frame began; nothing if there is none left.
    std::optional<Answer> AnswerContinue();

    int Code() const { return description_.code; }
    unsigned Address() const { return *description_.address; }
    const std::string& Name() const { return description_.name; }

  private:
    struct Row {
        Parameter parameter;
        unsigned location = 0;
        std::string written;  // code text; empty before the first write
    };

    std::optional<Request> RequestIn(std::string_view frame) const;
    Answer AnswerRequest(const Request& request, std::int64_t timeMs);
    Answer ReadDynamic(std::int64_t timeMs);
    Answer ReadStatic(std::int64_t timeMs);
    Answer ReadParameters(const Request& request, std::int64_t timeMs);
    Answer Write(const Request& request);
    Answer Command(const Request& request) const;

    std::vector<std::string> CodesOfRun(std::size_t first, std::int64_t timeMs) const;
    std::string CodeOf(const Row& row, std::int64_t timeMs) const;
    Row* FindRow(unsigned location);
    std::string Frame(std::string_view text, char lineEnd) const;
    Answer Verdict(bool isAccepted) const;

    InstrumentDescription description_;
    std::vector<Row> rows_;
    std::size_t partLength_;
    std::deque<std::string> partsLeft_;  // data of the parts still to be asked for
};

}  // namespace simulator
