#include "simulator/modbus_answers.h"

#include <algorithm>

#include "simulator/bytes.h"
#include "simulator/framing.h"
#include "simulator/register_codes.h"

namespace simulator {

namespace {

constexpr int kReadHolding = 0x03;
constexpr int kReadInput = 0x04;
constexpr int kWriteOne = 0x06;
constexpr int kTest = 0x08;
constexpr int kBoardType = 0x09;
constexpr int kWriteSeveral = 0x10;
constexpr int kException = 0x80;

constexpr int kParameterCode = 22;      // reads parameters in place of registers
constexpr int kAddressDigits = 0x0FFF;  // the first digit of an address does not count
constexpr int kLowByte = 0xFF;

// What is told of a board: three bytes, then the number of its kind.
constexpr std::string_view kBoard = {"\x01\x00\x00\x12", 4};

enum class Trouble { Function, Address, Count, Value, Lock };

int WordAt(std::string_view bytes, std::size_t index) {
    return 256 * ByteAt(bytes, index) + ByteAt(bytes, index + 1);
}

bool IsWrite(int function) { return function == kWriteOne || function == kWriteSeveral; }

Answer Told(std::string content) { return {{std::move(content)}, false, false}; }

class Modbus {
  public:
    Modbus(const Model& model, std::vector<Row>& rows, double seconds)
        : model_(model),
          rows_(rows),
          seconds_(seconds),
          isRtu_(FramingOf(model.code) == Framing::ModbusRtu) {}

    Answer AnswerTo(std::string_view request) {
        const int function = ByteAt(request, 0);
        if (model_.code == kParameterCode)
            return function == kReadHolding && request.size() == 3 ? ReadParameters(request)
                                                                   : Refused(function, Trouble::Function);
        if (request.size() >= 5 && (function == kReadHolding || function == kReadInput)) return Read(request);
        if (request.size() >= 4 && function == kWriteOne) return WriteOne(request);
        if (isRtu_ && function == kTest) return Told(std::string(request));
        if (isRtu_ && function == kBoardType)
            return Told(static_cast<char>(kBoardType) + std::string(kBoard));
        if (isRtu_ && function == kWriteSeveral) return WriteSeveral(request);
        return Refused(function, Trouble::Function);
    }

  private:
    Answer Refused(int function, Trouble trouble) const {
        return {{Exception(function, trouble)}, IsWrite(function), true};
    }

    std::string Exception(int function, Trouble trouble) const {
        if (trouble == Trouble::Function) return Bytes({0x81, 1});
        if (trouble == Trouble::Count) return Bytes({0x85, 3});
        if (trouble == Trouble::Lock) return Bytes({0x86, 1});
        if (!isRtu_) return trouble == Trouble::Address ? Bytes({0x82, 2}) : Bytes({0x87, 3});
        const bool isAddressOfWrite = trouble == Trouble::Address && IsWrite(function);
        return Bytes({kException + function, isAddressOfWrite ? 3 : 2});
    }

    static int FirstRegister(const Row& row) { return row.address & kAddressDigits; }

    // Bytes in registers; under RTU length 5 stands for five of them.
    int SizeOf(const Row& row) const { return isRtu_ && row.size == 5 ? 10 : row.size + row.size % 2; }

    std::string BytesOf(const Row& row, int size) const {
        return BytesOfValue(row.ValueAt(seconds_), FormOf(model_, row.parameter), size);
    }

    Row* RowAt(int address) {
        const auto found = std::find_if(rows_.begin(), rows_.end(), [&](const Row& row) {
            return address >= FirstRegister(row) && address < FirstRegister(row) + SizeOf(row) / 2;
        });
        return found == rows_.end() ? nullptr : &*found;
    }

    bool IsLocked(const Row& written) const {
        constexpr double kUnlocked = 8;
        return std::any_of(rows_.begin(), rows_.end(), [&](const Row& row) {
            const bool isLock = row.parameter.name.find("CLK") != std::string::npos;
            return isLock && &row != &written && row.ValueAt(seconds_) != kUnlocked;
        });
    }

    Answer Read(std::string_view request) {
        constexpr int kMostRegisters = 125;
        const int function = ByteAt(request, 0);
        const int first = WordAt(request, 1) & kAddressDigits;
        const int count = WordAt(request, 3);
        if (count == 0) return Refused(function, Trouble::Count);
        if (count > kMostRegisters || RowAt(first) == nullptr) return Refused(function, Trouble::Address);
        return Told(Bytes({function, 2 * count}) + Registers(first, count));
    }

    // Of parameters at one address the first one is read.
    std::string Registers(int first, int count) const {
        std::string data(2 * static_cast<std::size_t>(count), '\0');
        for (auto row = rows_.rbegin(); row != rows_.rend(); ++row) {
            const bool isAsked =
                FirstRegister(*row) < first + count && FirstRegister(*row) + SizeOf(*row) / 2 > first;
            if (!isAsked) continue;
            const std::string bytes = BytesOf(*row, SizeOf(*row));
            int at = 2 * (FirstRegister(*row) - first);
            for (const char byte : bytes) {
                if (at >= 0 && at < 2 * count) data[static_cast<std::size_t>(at)] = byte;
                ++at;
            }
        }
        return data;
    }

    Answer ReadParameters(std::string_view request) {
        const int first = ByteAt(request, 1);
        const int count = ByteAt(request, 2);
        if (count == 0) return Refused(kReadHolding, Trouble::Count);
        std::string data;
        for (int address = first; address < first + count; ++address) {
            const auto row = std::find_if(rows_.begin(), rows_.end(), [&](const Row& one) {
                return (one.address & kLowByte) == address;
            });
            if (row == rows_.end()) return Refused(kReadHolding, Trouble::Address);
            data += BytesOf(*row, row->size);
        }
        return Told(Bytes({kReadHolding, static_cast<int>(data.size())}) + data);
    }

    Answer WriteOne(std::string_view request) {
        const auto trouble = Write(WordAt(request, 1) & kAddressDigits, request.substr(3));
        if (trouble) return Refused(kWriteOne, *trouble);
        return {{std::string(request)}, true, false};
    }

    Answer WriteSeveral(std::string_view request) {
        constexpr std::size_t kDataAt = 6;
        const std::string_view data = request.substr(kDataAt);
        if (data.empty() || data.size() != 2 * static_cast<std::size_t>(WordAt(request, 3)))
            return Refused(kWriteSeveral, Trouble::Value);
        const auto trouble = Write(WordAt(request, 1) & kAddressDigits, data);
        if (trouble) return Refused(kWriteSeveral, *trouble);
        return {{std::string(request.substr(0, kDataAt - 1))}, true, false};
    }

    std::optional<Trouble> Write(int address, std::string_view data) {
        Row* const row = RowAt(address);
        if (row == nullptr) return Trouble::Address;
        if (IsLocked(*row)) return Trouble::Lock;
        const RegisterForm form = FormOf(model_, row->parameter);
        std::string bytes = BytesOf(*row, SizeOf(*row));
        const auto at = 2 * static_cast<std::size_t>(address - FirstRegister(*row));
        if (at + data.size() > bytes.size()) return Trouble::Value;
        bytes.replace(at, data.size(), data);
        const auto value = ValueOfBytes(bytes, form);
        const bool isWhole = data.size() >= static_cast<std::size_t>(row->size);
        const bool isTaken = isWhole ? Accepts(*row, value) : value && IsWritable(*row);
        if (!isTaken) return Trouble::Value;
        row->written = value;
        return std::nullopt;
    }

    const Model& model_;
    std::vector<Row>& rows_;
    double seconds_;
    bool isRtu_;
};

}  // namespace

Answer AnswerToModbus(const Model& model, std::vector<Row>& rows, std::string_view request, double seconds) {
    return Modbus(model, rows, seconds).AnswerTo(request);
}

std::optional<Answer> ModbusRefusalOf(std::string_view request, std::string_view exception) {
    constexpr std::string_view kBusy = "\x88\x02";
    const bool isWrite = IsWrite(ByteAt(request, 0));
    const std::string told(exception.empty() ? kBusy : exception);
    const int kind = ByteAt(told, 0);
    const bool isOfWrites = kind == 0x86 || kind == 0x87 || kind == 0x90;
    if (isOfWrites && !isWrite) return std::nullopt;
    return Answer{{told}, isWrite, true};
}

}  // namespace simulator
