#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QRadioButton>
#include <QScrollArea>

#include "window/binder.h"

namespace commtest {

class NoteBar;

// The left side: the instrument panel (Frame2) with the protocols as options, and the advanced settings
// (Frame3). It scrolls as one where the window is too low.
class Sidebar : public QScrollArea {
    Q_OBJECT

  public:
    Sidebar(Binder& binder, NoteBar& notes, QWidget* parent);

    static constexpr int kNarrowest = 232;
    static constexpr int kFirstWidth = 264;
    static constexpr int kWidest = 360;

    // Rows of the options: 20 pixels high in a low window, else 24.
    void SetOptionHeight(int height);

    // What chooses protocol and instrument.
    QList<QWidget*> Choices() const;

    // What was chosen the last time, dimmed, until the lists are filled.
    void ShowFormerChoice(const QString& protocol, const QString& instrument);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QWidget* MakeFields(Binder& binder, NoteBar& notes);
    QWidget* MakeOptions(Binder& binder);
    void AddOption();
    void ShowOptions();
    QWidget* MakeAdvanced(Binder& binder);
    void FitOptions();
    void ShowChosenOption();

    Binder& binder_;
    QComboBox* protocols_ = nullptr;
    QComboBox* instruments_ = nullptr;
    QScrollArea* optionList_ = nullptr;
    QCheckBox* replay_ = nullptr;
    QList<QAbstractButton*> options_;
    int optionHeight_ = 20;
};

}  // namespace commtest
