#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "host/byte_reader.h"
#include "runtime/runtime_error.h"
#include "runtime/text.h"

namespace commtest {

// A line that no parameter list or template has: error 52.
class UnreadableLine : public RuntimeError {
  public:
    enum class Reason { TooLong, HoldsNul, IsUtf16 };

    UnreadableLine(Reason reason, int line) : RuntimeError(kBadFile), reason_(reason), line_(line) {}

    Reason Why() const { return reason_; }
    int Line() const { return line_; }  // from 1

  private:
    Reason reason_;
    int line_;
};

// The lines of a parameter list or of a template, one at a time: UTF-8 where a mark says so and all of the
// file is it, else code page 936; a mark in front of anything else is dropped.
class ListLines {
  public:
    static constexpr std::size_t kLongestLine = 64 * 1024;  // bytes, without its end

    explicit ListLines(std::unique_ptr<ByteReader> file);

    // The next line without its end (CR LF or LF), nothing behind the last one. Raises UnreadableLine; error
    // 52 if the file cannot be read.
    std::optional<Text> Next();

    // From the first line on again.
    void Rewind();

    // Of the line that Next gave last: its number from 1, and its bytes.
    int Line() const { return line_; }
    std::string_view Bytes() const { return bytes_; }

    bool IsUtf8() const { return isUtf8_; }
    std::uint64_t BytesRead() const { return bytesRead_; }
    std::uint64_t Size() const { return file_->Size(); }

  private:
    bool TakeLine();
    bool Fill();
    void FillForTheMark();
    bool AllIsUtf8();

    std::unique_ptr<ByteReader> file_;
    std::string block_;  // read and not taken yet, from taken_ on
    std::size_t taken_ = 0;
    std::string bytes_;
    std::size_t markSize_ = 0;  // of the mark that is dropped
    bool isUtf8_ = false;
    int line_ = 0;
    std::uint64_t bytesRead_ = 0;
};

}  // namespace commtest
