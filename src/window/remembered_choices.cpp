#include "window/remembered_choices.h"

#include <array>
#include <utility>

#include "session/events.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

const QString kProtocol = u"Window/Protocol"_s;
const QString kInstrument = u"Window/Instrument"_s;
const QString kInterval = u"Window/Interval"_s;
const QString kWriteType = u"Window/WriteType"_s;
constexpr int kWriteTypes = 3;
constexpr int kShowModes = 2;

struct Tick {
    QString key;
    TickControl& control;
};

std::array<Tick, 3> TicksOf(MainForm& form) {
    return {{{u"Window/StopScrolling"_s, form.ConSelChange},
             {u"Window/SaveRecord"_s, form.ConAutoSave[0]},
             {u"Window/SaveErrors"_s, form.ConAutoSave[1]}}};
}

// A name may hold what parts sections.
QString ShowModeKey(const MainForm& form) {
    QString protocol = QString::fromStdU16String(form.ConCommTypeList.Value());
    return u"Window/ShowMode/"_s + protocol.replace(u'/', u'|').replace(u'\\', u'|');
}

void ChooseIfThere(ListControl& list, const Text& entry) {
    if (list.Value() == entry || list.IndexOf(entry) < 0) return;
    list.Set(entry);
    RunIfSet(list.Click);
}

}  // namespace

RememberedChoices::RememberedChoices(MainForm& form, QSettings& settings, bool keepsInstrument)
    : form_(form), settings_(settings), keepsInstrument_(keepsInstrument) {}

void RememberedChoices::PutBack() {
    form_.ConCommTypeList.Click = [this, click = form_.ConCommTypeList.Click] {
        RunIfSet(click);
        PutBackShowMode();
    };
    if (keepsInstrument_) RunEvent(form_, [this] { PutBackInstrument(); });
    const Text interval = settings_.value(kInterval).toString().toStdU16String();
    if (!interval.empty()) RunEvent(form_, [&] { form_.ConDelayTime.Set(interval); });
    const int writeType = settings_.value(kWriteType, -1).toInt();
    if (writeType >= 0 && writeType < kWriteTypes) form_.WriteType.Show(writeType);
    for (const Tick& tick : TicksOf(form_))
        tick.control.Set(settings_.value(tick.key, tick.control.Value()).toBool());
    PutBackShowMode();
}

void RememberedChoices::PutBackInstrument() {
    const Text protocol = settings_.value(kProtocol).toString().toStdU16String();
    if (form_.ConCommTypeList.IndexOf(protocol) < 0) return;
    ChooseIfThere(form_.ConCommTypeList, protocol);
    ChooseIfThere(form_.InstrumentList(), settings_.value(kInstrument).toString().toStdU16String());
}

void RememberedChoices::PutBackShowMode() {
    const int mode = settings_.value(ShowModeKey(form_), -1).toInt();
    if (mode >= 0 && mode < kShowModes) form_.ShowMode.Show(mode);
}

void RememberedChoices::Follow(Binder& binder, const TextSpinBox& interval) {
    if (keepsInstrument_) FollowInstrument(binder);
    Remember(binder, form_.WriteType, kWriteType, [this] { return form_.WriteType.Chosen(); });
    for (const Tick& tick : TicksOf(form_))
        Remember(binder, tick.control, tick.key, [&control = tick.control] { return control.Value(); });
    // The session sets the interval, too, and the way of showing: what the user chooses comes here alone.
    QObject::connect(&interval, &TextSpinBox::Edited, &binder,
                     [this](const QString& text) { Keep(kInterval, text); });
    form_.ShowMode.Click = [this](int mode) { Keep(ShowModeKey(form_), mode); };
}

// Both together: an instrument's name counts in its protocol. A catalogue that cannot be read has neither.
void RememberedChoices::FollowInstrument(Binder& binder) {
    const auto chosen = [this] {
        return std::pair(form_.ConCommTypeList.Value(), form_.InstrumentList().Value());
    };
    binder.AtEachLook([this, chosen, last = std::pair<Text, Text>()]() mutable {
        const auto now = chosen();
        if (std::exchange(last, now) == now) return;
        const bool isThere =
            form_.ConCommTypeList.IndexOf(now.first) >= 0 && form_.InstrumentList().IndexOf(now.second) >= 0;
        if (!isThere) return;
        Keep(kProtocol, QString::fromStdU16String(now.first));
        Keep(kInstrument, QString::fromStdU16String(now.second));
    });
}

void RememberedChoices::Keep(const QString& key, const QVariant& value) {
    if (!isTrial_) settings_.setValue(key, value);
}

void RememberedChoices::Remember(Binder& binder, const Control& control, const QString& key,
                                 const std::function<QVariant()>& value) {
    binder.Watch(control, [this, key, value, last = value()]() mutable {
        const QVariant now = value();
        if (std::exchange(last, now) != now) Keep(key, now);
    });
}

}  // namespace commtest
