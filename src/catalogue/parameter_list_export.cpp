#include "catalogue/parameter_list_export.h"

#include <utility>

#include "catalogue/instrument_catalogue.h"
#include "host/file_names.h"
#include "numbers/bit_text.h"
#include "runtime/code_page.h"
#include "runtime/number.h"

namespace commtest {

namespace {

constexpr int kSerialWidth = 3;
constexpr int kNameBytes = 40;
constexpr int kDecimalPointWidth = 6;
constexpr int kAttributeWidth = 6;
constexpr int kLimitWidth = 12;
constexpr std::size_t kBlock = 64 * 1024;  // bytes that go to the sink at once

// Columns of the export's statement.
enum Column : std::size_t {
    kName,
    kAddress,
    kDecimalPoint = 3,
    kAttribute,
    kLowerLimit,
    kUpperLimit,
    kInstrument,
    kCode
};

Text SerialText(int serial) {
    Text text = WholeText(serial);
    PadWideText(text, kSerialWidth, kZerosOnTheLeft);
    return text;
}

Text LeftAligned(const Text& text, int width) {
    return Left(text + Text(static_cast<std::size_t>(width), u' '), width);
}

bool IsLossy(const Text& line, const std::string& bytes) { return FromCodePage(bytes) != line; }

}  // namespace

// Q212: a name of more than its bytes is not cut, and the columns behind it shift.
Text ListLineOf(int serial, const Text& name, const Text& address, const Text& decimalPoint,
                const Text& attribute, const Text& lowerLimit, const Text& upperLimit) {
    Text line = name;
    PadWideText(line, kNameBytes, kBlanksOnTheRight);
    line.insert(0, SerialText(serial) + u"  ");
    // Q213: the second character falls away, and with code 51 it is a digit of the address.
    line += Left(address, 1) + Mid(address, 3) + u" ";
    line += LeftAligned(Trim(decimalPoint).empty() ? Text(u"0") : decimalPoint, kDecimalPointWidth);
    line += LeftAligned(attribute, kAttributeWidth);
    line += LeftAligned(lowerLimit, kLimitWidth);
    line += LeftAligned(upperLimit, kLimitWidth);
    return line;
}

ParameterListExport::ParameterListExport(Store& store, Sink sink, std::function<bool(const Text&)> wanted)
    : store_(store), sink_(std::move(sink)), wanted_(std::move(wanted)) {
    const PatienceScope patience(store_, Patience::Unlimited);
    rows_ = InstrumentCatalogue(store_).OpenExportRows();
}

bool ParameterListExport::Step() {
    const PatienceScope patience(store_, Patience::Unlimited);
    if (!rows_->Next()) {
        WriteLine(u"END", {});
        WriteLine(u"DEVICE   END", {});
        Flush();
        return false;
    }
    const Text device = rows_->At(kInstrument);
    // Q214: two instruments of one name in a row are one block.
    if (device_ != device) {
        isWanted_ = !wanted_ || wanted_(device);
        if (isWanted_) BeginDevice(device);
        device_ = device;
    }
    if (isWanted_) WriteRow();
    return true;
}

void ParameterListExport::BeginDevice(const Text& name) {
    if (instruments_ > 0) {
        WriteLine(u"END", {});
        WriteLine({}, {});
    }
    ++instruments_;
    serial_ = 0;
    device_ = name;
    WriteLine(u"Device  " + name, name);
    WriteLine(u"Type    " + rows_->At(kCode), name);
}

void ParameterListExport::WriteRow() {
    const Text name = rows_->At(kName);
    ++serial_;
    ++parameters_;
    WriteLine(ListLineOf(serial_, name, rows_->At(kAddress), rows_->At(kDecimalPoint), rows_->At(kAttribute),
                         rows_->At(kLowerLimit), rows_->At(kUpperLimit)),
              name);
}

void ParameterListExport::WriteLine(const Text& line, const Text& rowName) {
    const std::string bytes = ToCodePage(line);
    if (lossyRows_.size() < kMostLossyRows && IsLossy(line, bytes)) {
        lossyRows_.push_back({*device_, serial_, rowName});
    }
    pending_ += bytes + "\r\n";
    if (pending_.size() >= kBlock) Flush();
}

void ParameterListExport::Flush() { sink_(std::exchange(pending_, {})); }

void ExportParameterList(Store& store, ProgramFiles& files) {
    const std::unique_ptr<GrowingFile> file = files.OpenForAppend(Text(kListCopyFileName));
    ParameterListExport list(store, [&](const std::string& bytes) { file->Write(bytes); });
    while (list.Step()) {
    }
}

}  // namespace commtest
