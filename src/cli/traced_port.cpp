#include "cli/traced_port.h"

#include <QDateTime>
#include <array>
#include <charconv>
#include <utility>

#include "cli/time_stamp.h"

namespace commtest {

namespace {

constexpr std::int64_t kMillisecond = 1000;  // microseconds
constexpr std::int64_t kSecond = 1000 * kMillisecond;
constexpr std::size_t kBlock = 16384;      // bytes that gather before they go out
constexpr std::size_t kMilliseconds = 20;  // where they stand in a stamp, three digits

void AddNumber(std::int64_t number, std::string& line) {
    std::array<char, 24> digits = {};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    line.append(digits.data(), end);
}

void AddBytes(const std::string& bytes, std::string& line) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    const std::size_t begin = line.size();
    line.resize(begin + 3 * bytes.size() - 1, ' ');
    char* place = line.data() + begin;
    for (const char character : bytes) {
        const auto byte = static_cast<unsigned char>(character);
        place[0] = kDigits[byte >> 4];
        place[1] = kDigits[byte & 15];
        place += 3;
    }
}

}  // namespace

void TracedPort::TraceInto(OutputFile& file) {
    file_ = &file;
    last_ = clock_.Microseconds();
    wallOffset_ = QDateTime::currentMSecsSinceEpoch() * kMillisecond - last_;
    waiting_ = kTraceHeading;
}

void TracedPort::Flush() {
    if (file_ != nullptr) file_->Write(std::exchange(waiting_, {}));
}

// Within a second of the wall clock only its milliseconds change.
void TracedPort::AddStamp(std::int64_t wall) {
    const std::int64_t second = wall / kSecond;
    if (std::exchange(stampedSecond_, second) != second) {
        stamp_ = TimeStamp(QDateTime::fromSecsSinceEpoch(second)).toStdString();
    }
    auto rest = static_cast<int>(wall % kSecond / kMillisecond);
    for (std::size_t digit = 3; digit > 0; --digit, rest /= 10) {
        stamp_[kMilliseconds + digit - 1] = static_cast<char>('0' + rest % 10);
    }
    waiting_ += stamp_;
}

void TracedPort::Add(std::string_view direction, const std::string& bytes) {
    if (file_ == nullptr || bytes.empty()) return;
    const std::int64_t now = clock_.Microseconds();
    AddStamp(now + wallOffset_);
    waiting_ += ',';
    AddNumber((now + wallOffset_) % kSecond, waiting_);
    waiting_ += ',';
    AddNumber(now - std::exchange(last_, now), waiting_);
    waiting_.append(",").append(direction).append(",");
    AddBytes(bytes, waiting_);
    waiting_ += '\n';
    if (waiting_.size() >= kBlock) Flush();
}

void TracedPort::Output(const std::string& bytes) {
    Add("sent", bytes);
    port_.Output(bytes);
}

std::string TracedPort::Input() {
    std::string bytes = port_.Input();
    Add("received", bytes);
    return bytes;
}

}  // namespace commtest
