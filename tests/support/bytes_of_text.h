#pragma once

#include <algorithm>
#include <string>
#include <utility>

#include "host/byte_reader.h"

namespace commtest::testing {

// A file in memory, whose bytes come in pieces of at most so many.
class BytesOfText : public ByteReader {
  public:
    explicit BytesOfText(std::string bytes, std::size_t piece = std::string::npos)
        : bytes_(std::move(bytes)), piece_(piece) {}

    std::size_t Read(char* to, std::size_t room) override {
        const std::size_t count = bytes_.copy(to, std::min(room, piece_), at_);
        at_ += count;
        return count;
    }
    void Rewind() override { at_ = 0; }
    std::uint64_t Size() const override { return bytes_.size(); }

  private:
    std::string bytes_;
    std::size_t piece_;
    std::size_t at_ = 0;
};

}  // namespace commtest::testing
