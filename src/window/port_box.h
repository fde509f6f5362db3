#pragma once

#include <QComboBox>
#include <QLabel>

#include "window/binder.h"

namespace commtest {

class PortListView;

// A port by its name, offered or typed. The offer is looked up anew each time the list opens. What is typed,
// "COM7" or "COM9=/dev/ttyS3", is taken when the box is left, and by Enter; a device named so is that port's
// from then on. What is no port is refused: the former one holds, and Escape shows it again.
class PortBox : public QComboBox {
    Q_OBJECT

  public:
    PortBox(Binder& binder, ListControl& port, QWidget* parent);

    void showPopup() override;

    // Says that the text is refused while it is; the owner lays it beside the box.
    QWidget& Refusal() { return *refusal_; }

  signals:
    void Taken();  // a port was chosen, or the box was left with one

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void TakeText();
    void Take(int number, const QString& device);
    void ShowPortInUse();
    void SetRefused(bool refused);
    QString DeviceOf(const QString& port) const;

    Binder& binder_;
    ListControl& port_;
    PortListView* list_;
    QLabel* refusalSign_;
    QWidget* refusal_;
};

}  // namespace commtest
