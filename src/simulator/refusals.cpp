#include "simulator/refusals.h"

#include "simulator/description.h"
#include "simulator/framing.h"

namespace simulator {

void RefuseStrangeRefusals(const std::vector<RefusalRate>& rates, const Instrument& instrument) {
    const Framing framing = FramingOf(instrument.Code()).value();
    const bool isModbus = framing == Framing::ModbusAscii || framing == Framing::ModbusRtu;
    for (const RefusalRate& rate : rates) {
        if (framing == Framing::Hct615d)
            throw DescriptionError("--refuse: expected an instrument that can refuse, found \"" +
                                   instrument.Name() + "\"");
        if (!rate.exception.empty() && !isModbus)
            throw DescriptionError("--refuse: expected a Modbus instrument for an exception, found \"" +
                                   instrument.Name() + "\"");
    }
}

std::optional<Answer> Refusals::Of(const Instrument& instrument, std::string_view content, double seconds) {
    for (const RefusalRate& rate : rates_) {
        auto refusal = instrument.RefusalOf(content, rate.exception, seconds);
        if (refusal && rate.rate > 0 && random_.Fraction() < rate.rate) return refusal;
    }
    return std::nullopt;
}

}  // namespace simulator
