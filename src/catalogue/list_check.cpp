#include "catalogue/list_check.h"

#include <algorithm>
#include <utility>

#include "catalogue/parameter_list_import.h"
#include "runtime/code_page.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

using Kind = ListFinding::Kind;

constexpr std::size_t kMostNameBytes = 40;
constexpr TextView kAttributeLetters = u"RWSD";

bool IsNumber(const Text& text) {
    return IsMet([&] {
        ToNumber(text);
        return true;
    });
}

// How many addresses a parameter of `length` bytes takes.
int AddressesTaken(AddressUnit unit, int length) {
    switch (unit) {
        case AddressUnit::Byte: return std::max(length, 1);
        case AddressUnit::Register: return std::max((length + 1) / 2, 1);
        case AddressUnit::Parameter: return 1;
    }
    return 1;
}

// "END" with or without a word behind it, or the end of the list.
bool IsPlainEnd(const Text& line) {
    return line == u"END" || line.starts_with(u"END ") ||
           (line.starts_with(u"DEVICE ") && Trim(Behind(line, u' ')).starts_with(u"END"));
}

}  // namespace

Kind KindOf(UnreadableLine::Reason reason) {
    switch (reason) {
        case UnreadableLine::Reason::TooLong: return Kind::LineTooLong;
        case UnreadableLine::Reason::HoldsNul: return Kind::HoldsNul;
        case UnreadableLine::Reason::IsUtf16: return Kind::IsUtf16;
    }
    return Kind::HoldsNul;
}

ListCheck::ListCheck(const InstrumentCatalogue& catalogue, std::unique_ptr<ByteReader> list, Sink sink,
                     const Switches& switches)
    : lines_(std::move(list)),
      sink_(std::move(sink)),
      switches_(switches),
      classes_(catalogue.Classes()),
      walk_(lines_, ReplacementsOf(catalogue.Replacements())) {}

void ListCheck::Tell(ListFinding finding) {
    ++findings_;
    if (finding.line == 0) finding.line = lines_.Line();
    sink_(finding);
}

void ListCheck::EndWith(Kind kind, int line, const Text& value) {
    endsImport_ = true;
    Tell({.kind = kind, .line = line, .name = walk_.Device().name, .value = value});
}

bool ListCheck::Step() {
    const ListWalk::Step step = TakeLine();
    if (endsImport_) return false;
    CheckBytes();
    switch (step) {
        case ListWalk::Step::Device: CheckDevice(); break;
        case ListWalk::Step::Row: CheckRow(); break;
        case ListWalk::Step::BlockEnd:
        case ListWalk::Step::ListEnd: CheckEnd(step); break;
        case ListWalk::Step::Passed: break;
    }
    return step != ListWalk::Step::ListEnd && !endsImport_;
}

ListWalk::Step ListCheck::TakeLine() {
    try {
        return walk_.Next();
    } catch (const UnreadableLine& line) {
        EndWith(KindOf(line.Why()), line.Line());
    } catch (const RuntimeError& error) {
        if (error.Number() != RuntimeError::kPastEndOfFile) throw;
        EndWith(Kind::EndsInsideBlock, walk_.DeviceLine());
    }
    return ListWalk::Step::Passed;
}

// Of the last line that was read; of the lines down to a type line that is the type line.
void ListCheck::CheckBytes() {
    if (std::exchange(checkedLine_, lines_.Line()) == lines_.Line()) return;  // the end of the file
    const std::string_view bytes = lines_.Bytes();
    if (std::all_of(bytes.begin(), bytes.end(), [](char byte) { return (byte & 0x80) == 0; })) return;
    if (firstHighLine_ == 0) firstHighLine_ = lines_.Line();
    if (lines_.IsUtf8()) return;
    looksUtf8_ = looksUtf8_ && IsUtf8(bytes);
    if (Contains(FromCodePage(bytes), u"\uFFFD")) Tell({.kind = Kind::NoCodePage});
}

void ListCheck::CheckDevice() {
    const ListDevice& device = walk_.Device();
    owners_.clear();
    ++instruments_;
    if (!device.hasType) Tell({.kind = Kind::NoTypeLine, .line = walk_.DeviceLine(), .name = device.name});
    if (!names_.insert(device.name).second) {
        Tell({.kind = Kind::InstrumentTwice, .line = walk_.DeviceLine(), .name = device.name});
    }
    const Text code = Mid(device.code, 1, 2);
    if (!IsMet([&] {
            protocolCode_ = ToWhole16(code);
            return true;
        })) {
        return EndWith(Kind::CodeNoNumber, lines_.Line(), code);
    }
    if (!IsListProtocol(protocolCode_, switches_)) {
        Tell({.kind = Kind::ProtocolUnknown, .name = device.name, .value = code});
    }
    const ClassOfList itsClass = ClassOfCode(device.code, classes_);
    if (!itsClass.isKnown) Tell({.kind = Kind::ClassUnknown, .name = device.name, .value = itsClass.id});
}

void ListCheck::CheckRow() {
    const ListRow& row = walk_.Row();
    const Text& line = walk_.LineText();
    if (line.empty()) return;
    if (!IsHexadecimal(row.decimalPoint)) {
        Tell({.kind = Kind::DecimalPointNoNumber, .name = row.name, .value = row.decimalPoint});
    }
    if (row.name.empty()) {
        if (!row.address.empty()) Tell({.kind = Kind::NameCutToNothing, .value = row.address});
        return;
    }
    ++parameters_;
    if (line.starts_with(u"DEVICE ")) return Tell({.kind = Kind::HeadInsideBlock, .name = row.name});
    if (line.starts_with(u";") || line.starts_with(u"；")) {
        return Tell({.kind = Kind::RemarkInsideBlock, .name = row.name});
    }
    if (row.address.empty()) return Tell({.kind = Kind::NoAddress, .name = row.name});
    CheckAddress(row);
    CheckFields(row);
}

void ListCheck::CheckAddress(const ListRow& row) {
    const ParameterRecord parameter = ParameterOfList(row, protocolCode_);
    const int address = HexParse(u"0" + parameter.address);
    if (address == 0) return;  // commands have none
    const int taken =
        AddressesTaken(ListProtocolOf(protocolCode_, switches_).unit, HexParse(parameter.length));
    const Owner* met = nullptr;
    for (int i = address; i < address + taken; ++i) {
        const auto [place, isFree] = owners_.try_emplace(i, Owner{row.name, address});
        if (!isFree && met == nullptr) met = &place->second;
    }
    if (met == nullptr) return;
    const Kind kind = met->first == address ? Kind::AddressTwice : Kind::AddressOverlaps;
    Tell({.kind = kind, .name = row.name, .value = row.address, .other = met->name});
}

void ListCheck::CheckFields(const ListRow& row) {
    if (row.attribute.find_first_not_of(kAttributeLetters) != Text::npos || row.attribute.empty()) {
        Tell({.kind = Kind::AttributeUnknown, .name = row.name, .value = row.attribute});
    }
    for (const Text& limit : {row.lowerLimit, row.upperLimit}) {
        if (!limit.empty() && !IsNumber(limit)) {
            Tell({.kind = Kind::LimitNoNumber, .name = row.name, .value = limit});
        }
    }
    if (row.fieldsTooMany > 0) Tell({.kind = Kind::TooManyFields, .name = row.name});
    if (ToCodePage(row.name).size() > kMostNameBytes) Tell({.kind = Kind::NameTooLong, .name = row.name});
}

void ListCheck::CheckEnd(ListWalk::Step step) {
    const Text& line = walk_.LineText();
    if (!line.empty() && !IsPlainEnd(line)) {
        Tell({.kind = step == ListWalk::Step::ListEnd ? Kind::NameEndsList : Kind::NameEndsBlock,
              .name = line});
    }
    if (step == ListWalk::Step::ListEnd && !lines_.IsUtf8() && firstHighLine_ != 0 && looksUtf8_) {
        Tell({.kind = Kind::LooksLikeUtf8, .line = firstHighLine_});
    }
}

}  // namespace commtest
