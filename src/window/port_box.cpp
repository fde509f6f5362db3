#include "window/port_box.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "host/serial_port.h"
#include "host_qt/named_port.h"
#include "host_qt/words.h"
#include "session/port_settings.h"
#include "window/bindings.h"
#include "window/glyphs.h"
#include "window/list_model.h"
#include "window/look.h"
#include "window/port_list_view.h"
#include "window/theme.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QString RefusalWords() { return Words::tr("不是串口，未采用"); }
constexpr int kGlyphSize = 16;

QWidget* MakeRefusal(QLabel* sign, QWidget* parent) {
    auto* refusal = new QFrame(parent);
    SetLook(*refusal, Look::Hint);
    auto* layout = new QHBoxLayout(refusal);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(4);
    layout->addWidget(sign);
    auto* words = new QLabel(RefusalWords(), refusal);
    words->setFont(Theme::CaptionFont());
    words->setForegroundRole(kFailureRole);
    layout->addWidget(words, 1);
    refusal->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    refusal->hide();
    return refusal;
}

}  // namespace

PortBox::PortBox(Binder& binder, ListControl& port, QWidget* parent)
    : QComboBox(parent),
      binder_(binder),
      port_(port),
      list_(new PortListView(this)),
      refusalSign_(new QLabel),
      refusal_(MakeRefusal(refusalSign_, this)) {
    setView(list_);
    // Bound before it can be typed into: the control gets no text that is being typed.
    Bind(binder, port, *this);
    setEditable(true);
    setCompleter(nullptr);
    auto& offer = *static_cast<ListModel*>(model());
    offer.TipOf = [this](const QString& entry) { return DeviceOf(entry); };
    offer.NameOf = [this](const QString& entry) {
        const PortRow row = RowOfPort(binder_.Form().MSComm1.Devices(), entry);
        return u"%1 %2 %3"_s.arg(entry, row.device, row.remark).simplified();
    };
    binder.Watch(port, [this] { ShowPortInUse(); });
    connect(this, &QComboBox::activated, this, [this] {
        ShowPortInUse();
        emit Taken();
    });
    connect(lineEdit(), &QLineEdit::returnPressed, this, &PortBox::TakeText);
    // Its own list takes the focus only for a while.
    WhenLeft(*this, [this] {
        if (QApplication::activePopupWidget() == nullptr) TakeText();
    });
}

// Adapters come and go.
void PortBox::showPopup() {
    binder_.Event([this] { OfferPorts(binder_.Form()); });
    list_->Show(binder_.Form().MSComm1.Devices());
    QComboBox::showPopup();
}

void PortBox::TakeText() {
    const auto named = NamedPortOf(currentText().trimmed());
    const bool isPort = named && (named->device.isEmpty() || CanBeDevice(named->device));
    if (isPort) {
        Take(named->number, named->device);
    } else {
        SetRefused(true);
    }
}

void PortBox::Take(int number, const QString& device) {
    binder_.Event([&] {
        MainForm& form = binder_.Form();
        if (!device.isEmpty()) {
            form.MSComm1.NameDevice(number, device.toStdU16String());
            OfferPorts(form);
        }
        port_.Set(u"COM%1"_s.arg(number).toStdU16String());
    });
    ShowPortInUse();
    emit Taken();
}

void PortBox::ShowPortInUse() {
    const QString text = QString::fromStdU16String(port_.Value());
    if (currentText() != text) setEditText(text);
    SetRefused(false);
}

void PortBox::SetRefused(bool refused) {
    if ((LookOf(this) == Look::Refused) == refused) return;
    SetLook(*this, refused ? Look::Refused : Look::Plain);
    setAccessibleDescription(refused ? RefusalWords() : QString());
    const QColor warn = QApplication::palette().color(kFailureRole);
    refusalSign_->setPixmap(GlyphPicture(Glyph::Warning, warn, kGlyphSize, devicePixelRatioF()));
    refusal_->setVisible(refused);
}

void PortBox::keyPressEvent(QKeyEvent* event) {
    const bool isOther = currentText() != QString::fromStdU16String(port_.Value());
    if (event->key() == Qt::Key_Escape && isOther) {
        ShowPortInUse();
    } else {
        QComboBox::keyPressEvent(event);
    }
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
