#pragma once

#include <QComboBox>

#include "window/binder.h"

namespace commtest {

// A port by its name, offered or typed. The offer is looked up anew each time the list opens; the box and
// each entry tell the device behind the name.
class PortBox : public QComboBox {
    Q_OBJECT

  public:
    PortBox(Binder& binder, ListControl& port, QWidget* parent);

    void showPopup() override;

  protected:
    bool event(QEvent* event) override;

  private:
    QString DeviceOf(const QString& port) const;

    Binder& binder_;
};

}  // namespace commtest
