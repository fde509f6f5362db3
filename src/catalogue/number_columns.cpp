#include "catalogue/number_columns.h"

#include <algorithm>
#include <array>

#include "runtime/number.h"
#include "runtime/runtime_error.h"

namespace commtest {

bool IsNumberColumn(TextView column) {
    static constexpr std::array<TextView, 9> kNumbers = {u"ID",   u"仪表ID", u"类别ID", u"芯片ID", u"列号",
                                                         u"宽度", u"合并",   u"对齐",   u"有效"};
    return std::any_of(kNumbers.begin(), kNumbers.end(),
                       [&](TextView number) { return IsSameColumn(number, column); });
}

StoreValue WholeNumberOf(const Text& text) {
    StoreValue number;
    PassOverError([&] {
        const Text capitals = UCase(text);  // an exponent, too
        if (ToNumber(capitals) == ToWhole32(capitals)) number = WholeText(ToWhole32(capitals));
    });
    return number;
}

StoreValue ValueFor(StoreEngine engine, TextView column, const StoreValue& value) {
    if (!value || engine == StoreEngine::Sqlite || !IsNumberColumn(column)) return value;
    return WholeNumberOf(*value);
}

}  // namespace commtest
