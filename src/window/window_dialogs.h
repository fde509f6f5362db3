#pragma once

#include <QWidget>

#include "host/dialogs.h"

namespace commtest {

// Boxes over the window. Each is modal and lets the events go on while it stands.
class WindowDialogs : public Dialogs {
  public:
    // The window that the boxes belong to while no other one is in use; none before it is shown.
    void SetWindow(QWidget* window) { window_ = window; }

    void ShowMessage(const Text& text, const Text& detail) override;
    void ShowNotice(const Notice& notice) override;
    void ShowError(int number, const Text& standardMessage) override;
    bool AskYesNo(const Text& text) override;
    Text AskText(const Text& title, const Text& prompt, const Text& proposal) override;

  private:
    QWidget* Owner() const;

    QWidget* window_ = nullptr;
};

}  // namespace commtest
