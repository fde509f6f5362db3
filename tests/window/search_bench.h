#pragma once

#include "window/view_bench.h"

namespace commtest::testing {

// A view bench whose line has one instrument, at address 5 and 9600 baud, for a search that the panel begins:
// COM1, from address 4 to 6, at 9600 baud.
struct SearchBench : ViewBench {
    static constexpr std::size_t k4800 = 2;
    static constexpr std::size_t k9600 = 3;

    std::string reply = "@05RDC80064006A\r";

    SearchBench() {
        Form().ConSettingComm.Set(u"COM1");
        Form().ConDelayTime.Set(u"97");
        Form().ConMeterAddr.Set(u"7");
        Form().ConSettingDE[0].Set(u"4");
        Form().ConSettingDE[1].Set(u"6");
        Form().ConSettingBT[k9600].Set(true);
        session.line.Answer = [this](const std::string& frame) {
            const bool hears = frame == "@05RD13\r" && session.line.Settings().starts_with(u"9600");
            return hears ? std::vector<Arrival>{{20, reply}} : std::vector<Arrival>{};
        };
    }

    void RunUntil(std::int64_t time) {
        session.line.RunUntil(time);
        binder.Look();
    }
};

}  // namespace commtest::testing
