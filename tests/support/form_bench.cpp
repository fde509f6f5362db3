#include "support/form_bench.h"

#include "session/events.h"

namespace commtest::testing {

FormBench::FormBench(ProtocolTable table, const Face& face, std::unique_ptr<Store> catalogue)
    : store(std::move(catalogue)),
      protocols(std::move(table)),
      form({line, dialogs, line, files, *store, settings, program}, protocols, companions, face) {
    dialogs.Time = [this] { return line.Time(); };
    line.Receives = [this] { PortReceives(form); };
    line.TimerTick = [this](int index) { TimerTicks(form, index); };
    for (Timer& timer : form.Timer1) line.Drive(timer);
}

}  // namespace commtest::testing
