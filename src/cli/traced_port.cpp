#include "cli/traced_port.h"

#include <QDateTime>
#include <utility>

#include "cli/time_stamp.h"

namespace commtest {

namespace {

constexpr std::int64_t kMillisecond = 1000;
constexpr std::size_t kBlock = 16384;  // bytes that gather before they go out

void AddBytes(const std::string& bytes, std::string& line) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (i > 0) line += ' ';
        line += kDigits[byte >> 4];
        line += kDigits[byte & 15];
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

void TracedPort::Add(std::string_view direction, const std::string& bytes) {
    if (file_ == nullptr || bytes.empty()) return;
    const std::int64_t now = clock_.Microseconds();
    const std::int64_t wall = now + wallOffset_;
    if (std::exchange(stampedAt_, wall / kMillisecond) != wall / kMillisecond) {
        stamp_ = TimeStamp(QDateTime::fromMSecsSinceEpoch(wall / kMillisecond)).toStdString();
    }
    waiting_ += stamp_;
    waiting_ += "," + std::to_string(wall % (kMillisecond * kMillisecond));
    waiting_ += "," + std::to_string(now - std::exchange(last_, now)) + ",";
    waiting_.append(direction).append(",");
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
