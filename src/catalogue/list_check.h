#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>

#include "catalogue/instrument_catalogue.h"
#include "catalogue/parameter_list.h"
#include "session/switches.h"

namespace commtest {

// What a parameter list holds that its import takes in another way than its writer may have meant.
struct ListFinding {
    enum class Kind {
        // The import takes it, but:
        NameEndsBlock,         // `name` holds END: the block ends here
        NameEndsList,          // `name` holds END: the import ends here
        HeadInsideBlock,       // `name`: a device head becomes a row, its block has no END before it
        RemarkInsideBlock,     // `name`: a remark becomes a row
        NameCutToNothing,      // `value` is the address that was found at the beginning: the row falls away
        NoAddress,             // `name` gets no length and the address 0
        DecimalPointNoNumber,  // `value` of `name`
        AddressTwice,          // `value` of `name` is that of `other`
        AddressOverlaps,       // `value` of `name` reaches into, or lies within, that of `other`
        AttributeUnknown,      // `value` of `name` has other letters than R, W, S and D
        LimitNoNumber,         // `value` of `name`
        TooManyFields,         // `name` has more than it takes: the rest falls away
        NameTooLong,           // `name` has more than 40 bytes: the columns of an export shift
        ProtocolUnknown,       // `value`, the code of `name`: it becomes a native instrument
        ClassUnknown,          // `value`, the class of `name`: it stands for itself
        NoTypeLine,            // `name`: the thirtieth line counts as its type line
        InstrumentTwice,       // `name`: an export puts the two together where they stand in a row
        NoCodePage,            // bytes that are no code page 936
        LooksLikeUtf8,         // without the mark: it is read as code page 936
        // The import ends without a change:
        CodeNoNumber,     // `value`, the code of `name`
        EndsInsideBlock,  // `name`
        LineTooLong,
        HoldsNul,
        IsUtf16,
    };

    Kind kind;
    int line = 0;  // from 1
    Text name = {};
    Text value = {};
    Text other = {};

    bool EndsImport() const { return kind >= Kind::CodeNoNumber; }
};

// The finding that an unreadable line is.
ListFinding::Kind KindOf(UnreadableLine::Reason reason);

// Reads a list as an import would, a line a step, and tells what it finds; it changes nothing.
class ListCheck {
  public:
    using Sink = std::function<void(const ListFinding& finding)>;

    // The catalogue gives its classes and replacements. Errors of the store.
    ListCheck(const InstrumentCatalogue& catalogue, std::unique_ptr<ByteReader> list, Sink sink,
              const Switches& switches = {});

    // False behind the last line. Error 52 if the file cannot be read.
    bool Step();

    std::uint64_t BytesRead() const { return lines_.BytesRead(); }
    std::uint64_t Size() const { return lines_.Size(); }

    // What an import of the lines read so far would give: nothing changes where it ends without a change.
    int Instruments() const { return instruments_; }
    int Parameters() const { return parameters_; }
    int Findings() const { return findings_; }
    bool EndsImport() const { return endsImport_; }

  private:
    struct Owner {
        Text name;
        int first;  // address
    };

    void Tell(ListFinding finding);
    ListWalk::Step TakeLine();
    void CheckBytes();
    void CheckDevice();
    void CheckRow();
    void CheckAddress(const ListRow& row);
    void CheckFields(const ListRow& row);
    void CheckEnd(ListWalk::Step step);
    void EndWith(ListFinding::Kind kind, int line, const Text& value = {});

    ListLines lines_;
    Sink sink_;
    Switches switches_;
    StoreRows classes_;
    ListWalk walk_;
    std::unordered_map<int, Owner> owners_;  // of the block, by address
    std::unordered_set<Text> names_;         // of the instruments so far
    int protocolCode_ = 0;
    int instruments_ = 0;
    int parameters_ = 0;
    int findings_ = 0;
    bool endsImport_ = false;
    bool looksUtf8_ = true;  // all lines so far
    int firstHighLine_ = 0;  // with such a byte
    int checkedLine_ = 0;    // the last whose bytes were
};

}  // namespace commtest
