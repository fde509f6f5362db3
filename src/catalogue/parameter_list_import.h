#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "catalogue/instrument_catalogue.h"
#include "catalogue/parameter_list.h"
#include "host/dialogs.h"
#include "host/program_files.h"
#include "session/switches.h"

namespace commtest {

// How the addresses of a protocol count.
enum class AddressUnit { Byte, Register, Parameter };

// A protocol as instruments of a list have it, by the first two characters of their code.
struct ListProtocol {
    int code;
    TextView name;
    AddressUnit unit;
    bool isOfEveryFace = true;
};

// Every code that has no row of its own, or none on this face, is the native protocol's.
const ListProtocol& ListProtocolOf(int code, const Switches& switches);
bool IsListProtocol(int code, const Switches& switches);

// 51: two bytes a parameter, and the length digit is part of the address.
inline constexpr int kModuleCode = 51;

// The row of the catalogue that a row of a list becomes, without its two numbers.
ParameterRecord ParameterOfList(const ListRow& row, int protocolCode);

// The class whose number the characters 5 and 6 of an instrument's code are; without one they stand for
// themselves.
struct ClassOfList {
    Text name;
    Text id;
    bool isKnown = false;
};
ClassOfList ClassOfCode(const Text& code, const StoreRows& classes);

// Rebuilds instruments and parameters of the catalogue from a list, in one transaction, a line of the list a
// step. Until Commit nothing has changed for anybody else; gone before that, all is as it was.
class ParameterListImport {
  public:
    // Begins the transaction. Errors of the store.
    ParameterListImport(Store& store, std::unique_ptr<ByteReader> list, const Switches& switches = {});
    ParameterListImport(const ParameterListImport&) = delete;
    ParameterListImport& operator=(const ParameterListImport&) = delete;
    ~ParameterListImport();

    // Deletes a few instruments while there are some, then takes a line; of a device head the lines to its
    // type line, too. False at the end of the list. Error 62 where the file ends inside a block, 13 for a
    // code that does not begin with a number, UnreadableLine, errors of the store.
    bool Step();

    void Commit();

    int Line() const { return lines_.Line(); }  // the last one read, from 1
    std::uint64_t BytesRead() const { return lines_.BytesRead(); }
    std::uint64_t Size() const { return lines_.Size(); }
    int Instruments() const { return instrumentId_; }
    int Parameters() const { return parameterId_; }

    // The parameters whose decimal point is no hexadecimal number, which are stored all the same.
    const std::vector<Text>& BadParameters() const { return badParameters_; }

    // What the user is told of an import that has ended.
    Text Message() const;

  private:
    void BeginReading();
    void AddDevice();
    void AddRow();

    Store& store_;
    InstrumentCatalogue catalogue_;
    ListLines lines_;
    Switches switches_;
    StoreRows classes_;
    std::unique_ptr<ListWalk> walk_;  // once the catalogue is empty
    int protocolCode_ = 0;
    int instrumentId_ = 0;
    int parameterId_ = 0;
    std::vector<Text> badParameters_;
    bool isOpen_ = true;  // the transaction
};

// Rebuilds the catalogue from TQ.ini, says so, and appends the new list to OutTQ.ini. Error 53 without the
// file; errors as of a step, behind which the catalogue is as it was; a failure behind the message is that of
// the export, and the import stands.
void ImportParameterList(Store& store, ProgramFiles& files, Dialogs& dialogs, const Switches& switches = {});

}  // namespace commtest
