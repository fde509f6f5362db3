#include "catalogue/list_lines.h"

#include <utility>

#include "runtime/code_page.h"

namespace commtest {

namespace {

constexpr std::size_t kBlock = 64 * 1024;  // bytes

}  // namespace

ListLines::ListLines(std::unique_ptr<ByteReader> file) : file_(std::move(file)) {
    FillForTheMark();
    if (!block_.starts_with(kUtf8Mark)) return;
    markSize_ = kUtf8Mark.size();
    isUtf8_ = AllIsUtf8();
    Rewind();
}

void ListLines::Rewind() {
    file_->Rewind();
    block_.clear();
    taken_ = 0;
    line_ = 0;
    bytesRead_ = 0;
    FillForTheMark();
    taken_ = markSize_;
}

void ListLines::FillForTheMark() {
    while (block_.size() < kUtf8Mark.size() && Fill()) {
    }
}

// Another block behind what is left of the last one; false at the end of the file.
bool ListLines::Fill() {
    block_.erase(0, std::exchange(taken_, 0));
    const std::size_t held = block_.size();
    block_.resize(held + kBlock);
    const std::size_t count = file_->Read(block_.data() + held, kBlock);
    block_.resize(held + count);
    bytesRead_ += count;
    return count != 0;
}

bool ListLines::AllIsUtf8() {
    taken_ = markSize_;
    while (TakeLine()) {
        if (!commtest::IsUtf8(bytes_)) return false;
    }
    return true;
}

// The next line into bytes_; of one that is too long its beginning.
bool ListLines::TakeLine() {
    auto end = block_.find('\n', taken_);
    while (end == std::string::npos && block_.size() - taken_ <= kLongestLine + 1) {
        const std::size_t looked = block_.size() - taken_;
        if (!Fill()) break;
        end = block_.find('\n', looked);
    }
    if (taken_ == block_.size()) return false;
    bytes_.assign(block_, taken_, end == std::string::npos ? end : end - taken_);
    taken_ = end == std::string::npos ? block_.size() : end + 1;
    if (bytes_.ends_with('\r')) bytes_.pop_back();
    return true;
}

std::optional<Text> ListLines::Next() {
    if (!TakeLine()) return std::nullopt;
    ++line_;
    using Reason = UnreadableLine::Reason;
    if (line_ == 1 && (bytes_.starts_with("\xFF\xFE") || bytes_.starts_with("\xFE\xFF")))
        throw UnreadableLine(Reason::IsUtf16, line_);
    if (bytes_.size() > kLongestLine) throw UnreadableLine(Reason::TooLong, line_);
    if (bytes_.find('\0') != std::string::npos) throw UnreadableLine(Reason::HoldsNul, line_);
    return isUtf8_ ? FromUtf8(bytes_) : FromCodePage(bytes_);
}

}  // namespace commtest
