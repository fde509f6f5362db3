#pragma once

#include <vector>

#include "cli/console.h"
#include "host/dialogs.h"

namespace commtest {

// Boxes become lines; nobody answers a question. Behind an error of the session stands its reason, where
// there is one.
class ConsoleDialogs : public Dialogs {
  public:
    explicit ConsoleDialogs(Console& console) : console_(console) {}

    Text ReasonOfError;
    // Messages that begin so say what the verb itself says, or speak of buttons: they are left out.
    std::vector<Text> Unsaid;
    // A port that has gone is waited for.
    bool WaitsForPort = false;

    void ShowMessage(const Text& text, const Text& detail) override;
    void ShowNotice(const Notice& notice) override;
    void ShowError(int number, const Text& standardMessage) override;
    bool AskYesNo(const Text& text) override;
    Text AskText(const Text& title, const Text& prompt, const Text& proposal) override;

  private:
    Console& console_;
};

}  // namespace commtest
