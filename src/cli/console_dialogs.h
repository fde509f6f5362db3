#pragma once

#include <functional>

#include "cli/console.h"
#include "host/dialogs.h"

namespace commtest {

// Boxes become lines; nobody answers a question. Behind a text of the session stands the reason, where there
// is one.
class ConsoleDialogs : public Dialogs {
  public:
    explicit ConsoleDialogs(Console& console) : console_(console) {}

    std::function<Text()> ReasonOfMessage;
    Text ReasonOfError;

    void ShowMessage(const Text& text) override;
    void ShowError(int number, const Text& standardMessage) override;
    bool AskYesNo(const Text& text) override;
    Text AskText(const Text& title, const Text& prompt, const Text& proposal) override;

  private:
    Console& console_;
};

}  // namespace commtest
