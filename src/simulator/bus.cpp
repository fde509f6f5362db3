#include "simulator/bus.h"

#include <sstream>

#include "simulator/native_frames.h"

namespace simulator {

namespace {

Framing FramingOnTheLine(const std::vector<Instrument>& instruments) {
    return instruments.empty() ? Framing::Native : FramingOf(instruments.front().Code()).value();
}

void Add(InstrumentCounts& total, const InstrumentCounts& one) {
    total.requests += one.requests;
    total.continueBytes += one.continueBytes;
    total.answers += one.answers;
    total.writesAccepted += one.writesAccepted;
    total.refusals += one.refusals;
    total.faults.drops += one.faults.drops;
    total.faults.corruptions += one.faults.corruptions;
    total.faults.truncations += one.faults.truncations;
    total.faults.lateReplies += one.faults.lateReplies;
    total.faults.splits += one.faults.splits;
    total.faults.delays += one.faults.delays;
    total.faults.noises += one.faults.noises;
}

std::string Json(const InstrumentCounts& counts) {
    std::ostringstream out;
    out << "\"requests\": " << counts.requests << ", \"continue_bytes\": " << counts.continueBytes
        << ", \"answers\": " << counts.answers << ", \"writes_accepted\": " << counts.writesAccepted
        << ", \"refusals\": " << counts.refusals << ", \"dropped\": " << counts.faults.drops
        << ", \"corrupted\": " << counts.faults.corruptions
        << ", \"truncated\": " << counts.faults.truncations << ", \"late\": " << counts.faults.lateReplies
        << ", \"split\": " << counts.faults.splits << ", \"delayed\": " << counts.faults.delays
        << ", \"noise\": " << counts.faults.noises;
    return out.str();
}

// Names come from description files: only quotes, backslashes and control characters need care.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += static_cast<unsigned char>(c) < 0x20 ? ' ' : c;
    }
    return quoted + '"';
}

}  // namespace

Bus::Bus(std::vector<Instrument> instruments, const FaultRates& rates, std::uint64_t seed, int turnaroundMs)
    : instruments_(std::move(instruments)),
      counts_(instruments_.size()),
      framing_(FramingOnTheLine(instruments_)),
      reader_(framing_),
      line_(rates, seed, SparedBytes(framing_)),
      turnaroundMs_(turnaroundMs) {}

std::vector<Chunk> Bus::Receive(std::string_view bytes, double timeMs, int rate) {
    std::vector<Chunk> out;
    for (const std::string& frame : reader_.Take(bytes, timeMs)) {
        if (!hasPower_) {
            ++ignoredFrames_;
        } else if (framing_ == Framing::Native && frame.front() == kContinue) {
            Continue(rate, out);
        } else {
            TakeFrame(frame, timeMs, rate, out);
        }
    }
    return out;
}

void Bus::TakePower() {
    hasPower_ = false;
    parts_.clear();
    for (Instrument& instrument : instruments_) instrument.LosePower();
}

InstrumentCounts Bus::Total() const {
    InstrumentCounts total;
    for (const InstrumentCounts& one : counts_) Add(total, one);
    return total;
}

std::string Bus::CountsAsJson() const {
    std::ostringstream out;
    out << "{" << Json(Total()) << ", \"ignored_frames\": " << ignoredFrames_ << ", \"instruments\": [";
    for (std::size_t i = 0; i < instruments_.size(); ++i) {
        out << (i == 0 ? "" : ", ") << "{\"name\": " << Quoted(instruments_[i].Name())
            << ", \"address\": " << instruments_[i].Address() << ", " << Json(counts_[i]) << "}";
    }
    out << "]}";
    return out.str();
}

void Bus::TakeFrame(std::string_view frame, double timeMs, int rate, std::vector<Chunk>& out) {
    parts_.clear();
    for (std::size_t i = 0; i < instruments_.size(); ++i) {
        Instrument& instrument = instruments_[i];
        if (!instrument.Hears(rate)) continue;
        const auto content = ContentOfFrame(instrument.Code(), instrument.Address(), frame);
        if (!content) continue;
        const double seconds = timeMs / 1000;
        auto refusal = refusals_.Of(instrument, *content, seconds);
        Answer answer = refusal ? std::move(*refusal) : instrument.AnswerTo(*content, seconds);
        ++counts_[i].requests;
        if (answer.isRefused) ++counts_[i].refusals;
        if (answer.isWrite && !answer.isRefused) ++counts_[i].writesAccepted;
        asked_ = i;
        parts_ = std::move(answer.parts);
        SendNextPart(out);
        instrument.ObeySettings();
        return;
    }
    ++ignoredFrames_;
}

void Bus::Continue(int rate, std::vector<Chunk>& out) {
    if (parts_.empty() || !instruments_[asked_].Hears(rate)) {
        ++ignoredFrames_;
        return;
    }
    ++counts_[asked_].requests;
    ++counts_[asked_].continueBytes;
    SendNextPart(out);
}

void Bus::SendNextPart(std::vector<Chunk>& out) {
    const Instrument& instrument = instruments_[asked_];
    std::string reply =
        MakeReplyFrame(instrument.Code(), instrument.Address(), parts_.front(), parts_.size() == 1);
    parts_.erase(parts_.begin());
    const LineManner& manner = instrument.Manner();
    if (manner.garbles) line_.Garble(reply);
    const std::vector<Chunk> chunks =
        line_.Carry(std::move(reply), turnaroundMs_ + manner.delayMs, counts_[asked_].faults);
    if (!chunks.empty()) ++counts_[asked_].answers;
    out.insert(out.end(), chunks.begin(), chunks.end());
}

}  // namespace simulator
