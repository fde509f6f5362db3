#pragma once

#include "host/notice.h"
#include "runtime/text.h"

namespace commtest {

// Boxes that the user answers. All are modal; while one stands the event pump goes on.
class Dialogs {
  public:
    virtual ~Dialogs() = default;

    // `detail`, if there is one, says the reason and what to do.
    virtual void ShowMessage(const Text& text, const Text& detail) = 0;

    // What is still to be done for a step that has gone well so far.
    virtual void ShowAdvice(const Text& text) { ShowMessage(text, {}); }

    // A word of the program itself, as the face puts it.
    virtual void ShowNotice(const Notice& notice) = 0;

    // The standard message of a run-time error, and its number.
    virtual void ShowError(int number, const Text& standardMessage) = 0;

    virtual bool AskYesNo(const Text& text) = 0;

    // The answer; empty if the user cancelled.
    virtual Text AskText(const Text& title, const Text& prompt, const Text& proposal) = 0;
};

}  // namespace commtest
