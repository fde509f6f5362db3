#include "host/store.h"

#include <algorithm>

#include "runtime/runtime_error.h"

namespace commtest {

namespace {

char16_t InCapitals(char16_t character) {
    return character >= u'a' && character <= u'z' ? static_cast<char16_t>(character - u'a' + u'A')
                                                  : character;
}

}  // namespace

bool IsSameColumn(TextView one, TextView other) {
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char16_t a, char16_t b) { return InCapitals(a) == InCapitals(b); });
}

int StoreRows::ColumnOf(TextView name) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const TextView column = columns[i];
        const auto dot = column.rfind(u'.');
        if (IsSameColumn(dot == TextView::npos ? column : column.substr(dot + 1), name))
            return static_cast<int>(i);
    }
    return -1;
}

Text StoreRows::At(std::size_t row, std::size_t column) const {
    if (row >= rows.size() || column >= rows[row].size()) throw RuntimeError(RuntimeError::kSubscript);
    return rows[row][column].value_or(Text());
}

void RequireTables(Store& store, const std::vector<Text>& tables) {
    for (const Text& table : tables) {
        try {
            store.Query(u"SELECT * From " + table + u" Where 1 = 0");
        } catch (const DamagedStore&) {
            throw;
        } catch (const LostStore&) {
            throw;
        } catch (const RuntimeError& error) {
            throw NoCatalogue(error.Message());
        }
    }
}

bool HasTables(Store& store, const std::vector<Text>& tables) {
    try {
        RequireTables(store, tables);
        return true;
    } catch (const LostStore&) {
        throw;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace commtest
