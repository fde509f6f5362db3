#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/protocol_table.h"
#include "session/main_form.h"
#include "support/fakes.h"
#include "support/sqlite_store.h"
#include "support/virtual_line.h"

namespace commtest::testing {

// Notes by name what the session asks of the floors above it.
class NotingCompanions : public Companions {
  public:
    std::vector<std::string> Calls;
    std::function<void()> Called = [] {};  // within each call
    bool SearchGoesOn = true;
    Text ReplayFrame;

    void CaptureExchange(MainForm&) override { Note("CaptureExchange"); }
    void TakeReplayFrame(MainForm& form) override {
        Note("TakeReplayFrame");
        form.SendText = ReplayFrame;
    }
    void ReplayReply(MainForm&) override { Note("ReplayReply"); }
    bool NextSearchStep(MainForm&) override {
        Note("NextSearchStep");
        return SearchGoesOn;
    }

  private:
    void Note(std::string call) {
        Calls.push_back(std::move(call));
        Called();
    }
};

// A form on a virtual line, its timers driven, with noting companions and a protocol table of the test's
// choice; no handler of a control is wired. For what a whole session (BenchSession) does not let a test
// reach.
struct FormBench {
    explicit FormBench(ProtocolTable table = Protocols(), const Face& face = kChineseFace,
                       std::unique_ptr<Store> catalogue = MakeEmptyCatalogue());

    VirtualLine line;
    FakeDialogs dialogs;
    FakeProgramFiles files;
    FakeSettings settings;
    FakeProgram program;
    std::unique_ptr<Store> store;
    NotingCompanions companions;
    ProtocolTable protocols;
    MainForm form;
};

}  // namespace commtest::testing
