#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/session.h"
#include "host/store.h"
#include "support/failing_store.h"
#include "support/fakes.h"
#include "support/frame_text.h"
#include "support/sqlite_store.h"
#include "support/test_parameter.h"
#include "support/virtual_line.h"

namespace commtest::testing {

// A whole session on a virtual line, over a catalogue without rows, in memory unless one is given: the bench
// on which core tests, the dialogues and the benchmarks run. Verbs make a test a short story; texts are
// UTF-8.
class BenchSession {
  public:
    explicit BenchSession(const Face& face = kChineseFace,
                          std::unique_ptr<Store> catalogue = MakeEmptyCatalogue());

    MainForm& Form() { return session_.Form(); }
    DataTools& Tools() { return session_.Tools(); }

    // An instrument in the catalogue, `code` being its 编号.
    void Add(const Text& name, const Text& protocol, const Text& code,
             const std::vector<TestParameter>& parameters);

    // The user chooses protocol and instrument; an empty instrument leaves the first of the protocol.
    void Choose(const Text& protocol, const Text& instrument);

    void Press(int toolbarButton);
    void Click(int row, int col);  // on the parameter grid
    void TypeAndEnter(const Text& entry);

    // The far end: answers the frames in turn, each at once; silent when used up.
    void WillAnswer(const std::vector<std::string>& hexReplies);

    // The frames that went out, as hexadecimal pairs: "40 30 31 ...".
    std::vector<std::string> SentFrames() const;

    std::string Cell(int row, int col) { return ToUtf8(Form().ParameterGrid().Cell(row, col)); }
    std::string Record() { return ToUtf8(Form().ConCommString[1].WholeText()); }

    VirtualLine line;
    FakeDialogs dialogs;
    FakeProgramFiles files;
    FakeSettings settings;
    FakeProgram program;
    std::unique_ptr<Store> store;
    FailingStore storeCalls{*store};  // those of the session

  private:
    Session session_;
};

// An event of a test enters the session by its one door.
void Happen(BenchSession& bench, const std::function<void(MainForm&)>& event);

}  // namespace commtest::testing
