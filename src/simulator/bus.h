#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulator/faults.h"
#include "simulator/framing.h"
#include "simulator/instrument.h"
#include "simulator/refusals.h"

namespace simulator {

struct InstrumentCounts {
    long requests = 0;  // understood, continue bytes among them
    long continueBytes = 0;
    long answers = 0;  // that left in whatever state; dropped ones are not among them
    long writesAccepted = 0;
    long refusals = 0;
    FaultCounts faults;
};

// Several instruments on one line, all of one framing: that of the first. Bytes may come in any pieces.
class Bus {
  public:
    Bus(std::vector<Instrument> instruments, const FaultRates& rates, std::uint64_t seed,
        int turnaroundMs = 0);

    void SetRefusals(Refusals refusals) { refusals_ = std::move(refusals); }

    // Without power all that comes is ignored frames, and no part of an answer is left.
    void TakePower();
    void GivePower() { hasPower_ = true; }

    // What the instruments send in answer to these bytes, come at `timeMs` and at `rate` baud (0: nobody
    // knows); delays count from that moment.
    std::vector<Chunk> Receive(std::string_view bytes, double timeMs, int rate = 0);

    const std::vector<Instrument>& Instruments() const { return instruments_; }
    const InstrumentCounts& CountsOf(std::size_t instrument) const { return counts_[instrument]; }
    InstrumentCounts Total() const;
    long IgnoredFrames() const {
        return ignoredFrames_;
    }  // for nobody here, at a wrong rate, with a wrong check word, or without power

    // All counts as one JSON object.
    std::string CountsAsJson() const;

  private:
    void TakeFrame(std::string_view frame, double timeMs, int rate, std::vector<Chunk>& out);
    void Continue(int rate, std::vector<Chunk>& out);
    void SendNextPart(std::vector<Chunk>& out);

    std::vector<Instrument> instruments_;
    std::vector<InstrumentCounts> counts_;
    Framing framing_;
    RequestReader reader_;
    FaultyLine line_;
    Refusals refusals_;
    bool hasPower_ = true;
    int turnaroundMs_;
    long ignoredFrames_ = 0;

    std::size_t asked_ = 0;           // the instrument that answers
    std::vector<std::string> parts_;  // of its answer, the ones that wait
};

}  // namespace simulator
