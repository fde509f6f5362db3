#include "protocol_modbus/modbus_words.h"

#include "runtime/number.h"

namespace commtest {

Text AddressInDecimal(const Exchange& exchange) { return WholeText(HexParse(exchange.addressText)); }

Text WordsOnWritten(const Exchange& exchange) {
    return u"成功修改 " + AddressInDecimal(exchange) + u"# 仪表的参数";
}

}  // namespace commtest
