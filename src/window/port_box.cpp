#include "window/port_box.h"

#include <QEvent>

#include "host/serial_port.h"
#include "session/port_settings.h"
#include "window/bindings.h"
#include "window/list_model.h"

namespace commtest {

using namespace Qt::StringLiterals;

PortBox::PortBox(Binder& binder, ListControl& port, QWidget* parent) : QComboBox(parent), binder_(binder) {
    setEditable(true);
    Bind(binder, port, *this);
    static_cast<ListModel*>(model())->TipOf = [this](const QString& entry) { return DeviceOf(entry); };
}

// Adapters come and go.
void PortBox::showPopup() {
    binder_.Event([this] { OfferPorts(binder_.Form()); });
    QComboBox::showPopup();
}

bool PortBox::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) setToolTip(DeviceOf(currentText()));
    return QComboBox::event(event);
}

QString PortBox::DeviceOf(const QString& port) const {
    for (const PortDevice& device : binder_.Form().MSComm1.Devices()) {
        if (port.trimmed().compare(u"COM%1"_s.arg(device.number), Qt::CaseInsensitive) == 0)
            return QString::fromStdU16String(device.device);
    }
    return {};
}

}  // namespace commtest
