#pragma once

#include <QMessageBox>
#include <QWidget>

#include "host/dialogs.h"
#include "window/glyphs.h"

namespace commtest {

class MainForm;
class Theme;

// Boxes over the window. Each is modal and lets the events go on while it stands; it is at least as wide as
// its title. An error says behind its standard message what was wrong, where the fields of the session or the
// last answer show it, and what to do; the question for the note of a
// capture names the instrument.
class WindowDialogs : public Dialogs {
  public:
    // The window that the boxes belong to while no other one is in use; none before it is shown.
    void SetWindow(QWidget* window) { window_ = window; }
    void SetSession(const MainForm& form) { form_ = &form; }
    void SetTheme(const Theme& theme) { theme_ = &theme; }

    void ShowMessage(const Text& text, const Text& detail) override;
    void ShowAdvice(const Text& text) override;
    void ShowNotice(const Notice& notice) override;
    void ShowError(int number, const Text& standardMessage) override;
    bool AskYesNo(const Text& text) override;
    Text AskText(const Text& title, const Text& prompt, const Text& proposal) override;

    static constexpr int kNarrowest = 560;
    static constexpr int kSignSize = 32;

  private:
    QWidget* Owner() const;
    void Tell(Glyph sign, const QString& text, const QString& detail) const;
    int Run(QMessageBox& box, Glyph sign) const;
    QString ReasonOf(int error) const;
    QString DetailOf(const QString& question) const;

    QWidget* window_ = nullptr;
    const MainForm* form_ = nullptr;
    const Theme* theme_ = nullptr;
    QString lastQuestion_;  // its title; empty: none since the last error
    QString lastAnswer_;    // empty: cancelled
};

}  // namespace commtest
