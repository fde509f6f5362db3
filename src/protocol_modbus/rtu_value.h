#pragma once

#include <optional>

#include "runtime/text.h"

namespace commtest {

struct Conversation;
struct InstrumentInUse;

// An RTU instrument has one number format (session/instrument_codec.h) for all its values. Errors of the
// codecs, and of the format.

// Number text to code text.
void EncodeRtuValue(const InstrumentInUse& instrument, Text& value);

// Whether the value shown for a code is a constant: on an instrument named with "相" that of every code of
// eight characters, on a face that heeds the name.
bool ShowsConstant(const Conversation& talk, const Text& code);

// Turns code texts of one reply into number texts; the constant is 49.5. The format is looked up with the
// first of them.
class RtuValueReader {
  public:
    explicit RtuValueReader(const Conversation& talk) : talk_(talk) {}

    void Decode(Text& value) const;

  private:
    const Conversation& talk_;
    mutable std::optional<int> format_;
};

void DecodeRtuValue(const Conversation& talk, Text& value);

}  // namespace commtest
