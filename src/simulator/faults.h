#pragma once

#include <string>
#include <vector>

#include "simulator/behaviour.h"
#include "simulator/framing.h"

namespace simulator {

// Bytes that leave `delayMs` milliseconds after the request's last byte has come.
struct Chunk {
    int delayMs = 0;
    std::string bytes;
};

// How often each fault befalls a reply, 0 to 1. At most one of drop, corrupt, truncate and late befalls one
// reply; split, delay and noise may come on top of them. The host waits 1200 ms for a reply.
struct FaultRates {
    double drop = 0;      // nothing is sent
    double corrupt = 0;   // one byte that the framing does not spare is another one, never a line end
    double truncate = 0;  // at least one byte is sent, never the last one
    double late = 0;      // behind the host's wait
    double split = 0;     // in two to four chunks, all inside the wait
    double delay = 0;     // inside the wait
    double noise = 0;     // up to three random bytes in front or behind, never a line end
};

struct FaultCounts {
    long drops = 0;
    long corruptions = 0;
    long truncations = 0;
    long lateReplies = 0;
    long splits = 0;
    long delays = 0;
    long noises = 0;
};

// Does to replies what a bad line does; the same seed does it the same way again.
class FaultyLine {
  public:
    FaultyLine(const FaultRates& rates, std::uint64_t seed, const Spared& spared = {})
        : rates_(rates), random_(seed), spared_(spared) {}

    // What becomes of a whole reply; counted into `counts`.
    std::vector<Chunk> Carry(std::string reply, int turnaroundMs, FaultCounts& counts);

    // Makes every byte of a reply another one, as far as the framing does not spare it.
    void Garble(std::string& reply);

  private:
    bool Happens(double rate) { return rate > 0 && random_.Fraction() < rate; }
    char OtherByte(char byte);
    char OtherDigit(char digit);
    char Other(char byte) { return spared_.keepsDigits ? OtherDigit(byte) : OtherByte(byte); }
    void Corrupt(std::string& reply);
    void AddNoise(std::string& reply);
    std::vector<Chunk> Split(const std::string& reply, int delayMs);

    FaultRates rates_;
    RandomStream random_;
    Spared spared_;
};

}  // namespace simulator
