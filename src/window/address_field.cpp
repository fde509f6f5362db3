#include "window/address_field.h"

#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/note_bar.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLargestAddress = 255;

bool IsEmpty(const TextSpinBox& field) { return field.Text().trimmed().isEmpty(); }

void RestoreIfEmpty(TextSpinBox& field, const TextControl& address, NoteBar& notes) {
    const QString former = ToQt(address.Value());
    if (!IsEmpty(field) || former.isEmpty()) return;
    field.SetText(former);
    notes.Say(Words::tr("仪表地址没有填写，仍为 %1").arg(former));
}

}  // namespace

TextSpinBox* MakeAddressField(Binder& binder, NoteBar& notes) {
    auto* field = new TextSpinBox;
    field->setObjectName(u"ConMeterAddr"_s);
    field->SetRange(0, kLargestAddress);
    MainForm& form = binder.Form();
    TextControl& address = form.ConMeterAddr;
    binder.Watch(address, [&address, field] { field->SetText(ToQt(address.Value())); });
    QObject::connect(field, &TextSpinBox::Edited, field, [&binder, &address, field](const QString& text) {
        if (IsEmpty(*field)) return;
        binder.Event([&] { address.Set(text.toStdU16String()); });
    });
    const auto restore = [&address, &notes, field] { RestoreIfEmpty(*field, address, notes); };
    WhenLeft(*field, restore);
    binder.Watch(form.RunningState(), [&form, restore] {
        if (form.IsRunning()) restore();
    });
    BindPresence(binder, address, *field);
    return field;
}

}  // namespace commtest
