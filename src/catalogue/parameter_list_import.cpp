#include "catalogue/parameter_list_import.h"

#include <algorithm>
#include <array>
#include <utility>

#include "catalogue/catalogue_lock.h"
#include "catalogue/catalogue_schema.h"
#include "catalogue/parameter_list_export.h"
#include "host/file_names.h"
#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

namespace {

// Q235: two of them are not of every face.
constexpr std::array kListProtocols = {
    ListProtocol{11, u"TQ仪表协议", AddressUnit::Byte},
    ListProtocol{12, u"TQ仪表协议-定制累加和", AddressUnit::Byte},
    ListProtocol{13, u"TQ仪表协议-定制异或和", AddressUnit::Byte},
    ListProtocol{21, u"ModBus-Ascii协议", AddressUnit::Register},
    ListProtocol{22, u"ModBus-Ascii协议-定制01", AddressUnit::Parameter},
    ListProtocol{23, u"ModBus-Ascii协议-定制02", AddressUnit::Register, false},
    ListProtocol{31, u"ModBus-RTU协议", AddressUnit::Register},
    ListProtocol{32, u"ModBus-RTU协议-定制01", AddressUnit::Register},
    ListProtocol{33, u"ModBus-RTU协议-KD700记录仪", AddressUnit::Register},
    ListProtocol{34, u"ModBus-RTU协议-TQ记录仪板卡", AddressUnit::Register},
    ListProtocol{35, u"ModBus-RTU协议-标准流量表", AddressUnit::Register, false},
    ListProtocol{41, u"TQ特殊仪表协议-NOVAX", AddressUnit::Parameter},
    ListProtocol{42, u"TQ特殊仪表协议-HCT615D", AddressUnit::Parameter},
    ListProtocol{kModuleCode, u"ModBus-RTU协议-M46T", AddressUnit::Register},
};

bool IsSameNumber(const Text& one, const Text& other) {
    return IsMet([&] { return ToNumber(one) == ToNumber(other); });
}

}  // namespace

const ListProtocol& ListProtocolOf(int code, const Switches& switches) {
    const auto* const row =
        std::find_if(kListProtocols.begin(), kListProtocols.end(), [&](const ListProtocol& protocol) {
            return protocol.code == code && (protocol.isOfEveryFace || switches.everyListProtocol);
        });
    return row == kListProtocols.end() ? kListProtocols.front() : *row;
}

bool IsListProtocol(int code, const Switches& switches) {
    return ListProtocolOf(code, switches).code == code;
}

ParameterRecord ParameterOfList(const ListRow& row, int protocolCode) {
    ParameterRecord parameter;
    parameter.name = row.name;
    parameter.length = protocolCode == kModuleCode ? u"2" : Left(row.address, 1);
    parameter.address = protocolCode == kModuleCode ? row.address : u"0" + Mid(row.address, 2);
    parameter.decimalPoint = row.decimalPoint;
    parameter.attribute = row.attribute;
    parameter.lowerLimit = row.lowerLimit;
    parameter.upperLimit = row.upperLimit;
    return parameter;
}

ClassOfList ClassOfCode(const Text& code, const StoreRows& classes) {
    const Text wanted = Mid(code, 5, 2);
    for (std::size_t row = 0; row < classes.rows.size(); ++row) {
        if (IsSameNumber(classes.At(row, 1), wanted)) return {classes.At(row, 0), classes.At(row, 1), true};
    }
    return {wanted, wanted, false};
}

ParameterListImport::ParameterListImport(Store& store, std::unique_ptr<ByteReader> list,
                                         const Switches& switches)
    : store_(store), catalogue_(store), lines_(std::move(list)), switches_(switches) {
    const PatienceScope patience(store_, Patience::Unlimited);
    BeginWriting(store_);
    store_.BeginTransaction();
    try {
        KeepOthersFromRewriting(store_);
    } catch (...) {
        PassOverError([&] { store_.Rollback(); });
        throw;
    }
}

ParameterListImport::~ParameterListImport() {
    const PatienceScope patience(store_, Patience::Unlimited);
    if (isOpen_) PassOverError([&] { store_.Rollback(); });
}

void ParameterListImport::BeginReading() {
    classes_ = catalogue_.Classes();
    walk_ = std::make_unique<ListWalk>(lines_, ReplacementsOf(catalogue_.Replacements()));
}

bool ParameterListImport::Step() {
    const PatienceScope patience(store_, Patience::Unlimited);
    if (walk_ == nullptr) {
        if (catalogue_.ClearSomeInstruments()) return true;
        BeginReading();
    }
    switch (walk_->Next()) {
        case ListWalk::Step::Device: AddDevice(); return true;
        case ListWalk::Step::Row: AddRow(); return true;
        case ListWalk::Step::ListEnd: return false;
        case ListWalk::Step::Passed:
        case ListWalk::Step::BlockEnd: return true;
    }
    return true;
}

void ParameterListImport::AddDevice() {
    const ListDevice& device = walk_->Device();
    const ClassOfList itsClass = ClassOfCode(device.code, classes_);
    InstrumentRecord instrument;
    instrument.id = ++instrumentId_;
    instrument.name = device.name;
    instrument.code = device.code;
    instrument.sortKey = Mid(device.code, 1, 2);
    protocolCode_ = ToWhole16(instrument.sortKey);
    instrument.protocol = ListProtocolOf(protocolCode_, switches_).name;
    instrument.className = itsClass.name;
    instrument.classId = itsClass.id;
    catalogue_.AddInstrument(instrument);
}

// Q211: the address is never at fault, since it is found by its digits.
void ParameterListImport::AddRow() {
    const ListRow& row = walk_->Row();
    if (!IsHexadecimal(row.decimalPoint)) badParameters_.push_back(row.name);
    if (row.name.empty()) return;
    ParameterRecord parameter = ParameterOfList(row, protocolCode_);
    parameter.id = ++parameterId_;
    parameter.instrumentId = instrumentId_;
    catalogue_.AddParameter(parameter);
}

void ParameterListImport::Commit() {
    const PatienceScope patience(store_, Patience::Unlimited);
    store_.Commit();
    isOpen_ = false;
}

Text ParameterListImport::Message() const {
    if (badParameters_.empty()) return u"数据库重置完毕！";
    Text names;
    for (const Text& name : badParameters_) names += u"、" + name;
    return Mid(names, 2) + u"  参数数据导入出现错误！";
}

void ImportParameterList(Store& store, ProgramFiles& files, Dialogs& dialogs, const Switches& switches) {
    Text message;
    {
        ParameterListImport import(store, files.OpenBytes(Text(kListFileName)), switches);
        while (import.Step()) {
        }
        import.Commit();
        message = import.Message();
    }
    dialogs.ShowMessage(message, {});
    ExportParameterList(store, files);
}

}  // namespace commtest
