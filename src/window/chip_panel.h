#pragma once

#include <QLabel>
#include <QScrollArea>

#include "window/grid_view.h"

namespace commtest {

// ConCpuDataShow: the list of the chip records and the fields of the one that is chosen, to be read. It
// stands while the session shows it.
class ChipPanel : public QScrollArea {
    Q_OBJECT

  public:
    ChipPanel(Binder& binder, const Theme& theme, QWidget* parent);

    GridView& List() { return *list_; }

    static constexpr int kNarrowest = 440;

  signals:
    void Opened();
    void Closed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QWidget* MakeHead();
    QWidget* MakeList(const Theme& theme);
    QWidget* MakeFields();
    QWidget* MakeText();
    QWidget* MakeButtons();
    void Follow();
    void CountRecords();
    void Press(int button);

    Binder& binder_;
    MainForm& form_;
    QLabel* counts_;
    GridView* list_ = nullptr;
};

}  // namespace commtest
