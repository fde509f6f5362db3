#pragma once

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QStatusBar>

#include "tools/data_tools.h"
#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// The window over the check-word tool, beside the main window. Enter does what the chosen conversion does,
// Escape closes.
class ToolWindow : public QDialog {
    Q_OBJECT

  public:
    // Events go through the door of `form`. Place and size are remembered in `settings`, in the section
    // "Tools".
    ToolWindow(MainForm& form, DataTools& tools, const Theme& theme, QSettings& settings);

    // Shows the window in front of the others, its input ready for typing, or hides it, as the tool is loaded
    // or not.
    void Follow();

    void SaveState();  // of a window that is shown; one that is closed has saved itself

  public slots:
    void reject() override;

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    QWidget* MakeChoices();
    QWidget* MakeModes();
    QWidget* MakeProtocols();
    QWidget* MakeHints();
    QWidget* MakeFields();
    QWidget* MakeInput();
    QWidget* MakeNormalised();
    QWidget* MakeResult();
    QWidget* MakeExplanation();
    QWidget* MakeCopyButton(const QString& name, const TextControl& source);
    QPushButton* MakeButton(int index);
    QLineEdit* MakeField(TextControl& control, const QString& name);
    void ShowProtocols();
    void FillStatusBar();

    DataTools& tools_;
    const Theme& theme_;
    QSettings& settings_;
    Binder binder_;
    QList<QAbstractButton*> protocols_;
    QLineEdit* input_ = nullptr;
    QPushButton* action_ = nullptr;
    QStatusBar* status_;
};

}  // namespace commtest
