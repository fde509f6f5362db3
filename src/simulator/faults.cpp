#include "simulator/faults.h"

namespace simulator {

namespace {

constexpr int kLongestDelay = 500;  // with every gap of a split still inside the wait
constexpr int kLongestGap = 60;
constexpr int kShortestLateness = 1300;
constexpr int kLongestLateness = 2500;

bool IsLineEnd(char byte) { return byte == '\r' || byte == '\n'; }

}  // namespace

std::vector<Chunk> FaultyLine::Carry(std::string reply, int turnaroundMs, FaultCounts& counts) {
    int delayMs = turnaroundMs;
    if (Happens(rates_.drop)) {
        ++counts.drops;
        return {};
    }
    if (Happens(rates_.corrupt)) {
        ++counts.corruptions;
        Corrupt(reply);
    } else if (Happens(rates_.truncate)) {
        ++counts.truncations;
        reply.resize(static_cast<std::size_t>(random_.Between(1, static_cast<int>(reply.size()) - 1)));
    } else if (Happens(rates_.late)) {
        ++counts.lateReplies;
        delayMs += random_.Between(kShortestLateness, kLongestLateness);
    }
    if (Happens(rates_.noise)) {
        ++counts.noises;
        AddNoise(reply);
    }
    if (Happens(rates_.delay)) {
        ++counts.delays;
        delayMs += random_.Between(1, kLongestDelay);
    }
    if (reply.size() > 1 && Happens(rates_.split)) {
        ++counts.splits;
        return Split(reply, delayMs);
    }
    return {{delayMs, reply}};
}

char FaultyLine::OtherByte(char byte) {
    for (;;) {
        const char other = static_cast<char>(static_cast<unsigned char>(random_.Between(0, 255)));
        if (other != byte && !IsLineEnd(other)) return other;
    }
}

char FaultyLine::OtherDigit(char digit) {
    for (;;) {
        const char other = "0123456789ABCDEF"[random_.Between(0, 15)];
        if (other != digit) return other;
    }
}

void FaultyLine::Corrupt(std::string& reply) {
    const auto last = static_cast<int>(reply.size() - spared_.tail) - 1;
    const auto at = static_cast<std::size_t>(random_.Between(static_cast<int>(spared_.head), last));
    reply[at] = Other(reply[at]);
}

void FaultyLine::Garble(std::string& reply) {
    for (std::size_t at = spared_.head; at + spared_.tail < reply.size(); ++at) reply[at] = Other(reply[at]);
}

void FaultyLine::AddNoise(std::string& reply) {
    std::string noise;
    for (int count = random_.Between(1, 3); count > 0; --count) noise += OtherByte('@');
    reply = random_.Between(0, 1) == 0 ? noise + reply : reply + noise;
}

std::vector<Chunk> FaultyLine::Split(const std::string& reply, int delayMs) {
    std::vector<Chunk> chunks;
    std::size_t from = 0;
    for (int cuts = random_.Between(1, 3); cuts > 0 && from + 1 < reply.size(); --cuts) {
        const auto length =
            static_cast<std::size_t>(random_.Between(1, static_cast<int>(reply.size() - from) - 1));
        chunks.push_back({delayMs, reply.substr(from, length)});
        from += length;
        delayMs += random_.Between(1, kLongestGap);
    }
    chunks.push_back({delayMs, reply.substr(from)});
    return chunks;
}

}  // namespace simulator
