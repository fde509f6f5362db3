#pragma once

#include <cstddef>
#include <cstdint>

namespace commtest {

// The bytes of a file, from its beginning on.
class ByteReader {
  public:
    virtual ~ByteReader() = default;

    // As many of the next bytes as there is room for; 0 at the end. Error 52 if they cannot be read.
    virtual std::size_t Read(char* to, std::size_t room) = 0;

    // The next byte is the first one again.
    virtual void Rewind() = 0;

    virtual std::uint64_t Size() const = 0;
};

}  // namespace commtest
