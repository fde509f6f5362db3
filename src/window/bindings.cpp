#include "window/bindings.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <utility>

#include "window/list_model.h"

namespace commtest {

namespace {

class LeaveFilter : public QObject {
  public:
    LeaveFilter(QWidget& widget, std::function<void()> left) : QObject(&widget), left_(std::move(left)) {
        widget.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusOut) {
            const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
            const bool forAWhile = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
            if (!forAWhile) left_();
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    std::function<void()> left_;
};

class EnterFilter : public QObject {
  public:
    EnterFilter(QWidget& widget, std::function<void()> entered)
        : QObject(&widget), entered_(std::move(entered)) {
        widget.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Space) return false;
        entered_();
        return true;
    }

  private:
    std::function<void()> entered_;
};

// A cell that was copied elsewhere brings its line end or tabulator along, which a field would not show.
QString InOneLine(QString text) { return text.remove(u'\r').remove(u'\n').remove(u'\t'); }

void ShowText(const ListControl& control, QComboBox& comboBox) {
    const int index = control.IndexOf(control.Value());
    if (comboBox.currentIndex() != index) comboBox.setCurrentIndex(index);
    const QString text = QString::fromStdU16String(control.Value());
    if (!comboBox.isEditable()) {
        comboBox.setPlaceholderText(index < 0 ? text : QString());
    } else if (comboBox.lineEdit()->text() != text) {
        comboBox.lineEdit()->setText(text);
    }
}

}  // namespace

// One that nobody has hidden comes with its parent; shown before it has one, it would be a window of its own.
void BindPresence(Binder& binder, const Presence& control, QWidget& widget) {
    binder.Watch(control, [&control, &widget] {
        if (widget.isEnabled() != control.Enabled()) widget.setEnabled(control.Enabled());
        const bool isPutAway = widget.isHidden() && widget.testAttribute(Qt::WA_WState_ExplicitShowHide);
        if (isPutAway == control.Visible()) widget.setVisible(control.Visible());
    });
}

void Bind(Binder& binder, TextControl& control, QLabel& label) {
    binder.Watch(control, [&control, &label] { label.setText(QString::fromStdU16String(control.Value())); });
    BindPresence(binder, control, label);
}

void Bind(Binder& binder, TextControl& control, QLineEdit& edit) {
    binder.Watch(control, [&control, &edit] {
        const QString text = QString::fromStdU16String(control.Value());
        if (edit.text() != text) edit.setText(text);
    });
    QObject::connect(&edit, &QLineEdit::textEdited, &edit, [&binder, &control, &edit](const QString& text) {
        const QString line = InOneLine(text);
        if (line != text) edit.setText(line);
        binder.Event([&] { control.Set(line.toStdU16String()); });
    });
    BindPresence(binder, control, edit);
}

void Bind(Binder& binder, TextControl& control, TextSpinBox& spinBox) {
    binder.Watch(control,
                 [&control, &spinBox] { spinBox.SetText(QString::fromStdU16String(control.Value())); });
    QObject::connect(&spinBox, &TextSpinBox::Edited, &spinBox, [&binder, &control](const QString& text) {
        binder.Event([&] { control.Set(text.toStdU16String()); });
    });
    BindPresence(binder, control, spinBox);
}

void Bind(Binder& binder, TickControl& control, QAbstractButton& button) {
    button.setCheckable(true);
    binder.Watch(control, [&control, &button] { button.setChecked(control.Value()); });
    QObject::connect(&button, &QAbstractButton::clicked, &button,
                     [&binder, &control](bool ticked) { binder.Event([&] { control.Set(ticked); }); });
    BindPresence(binder, control, button);
}

void Bind(Binder& binder, OptionGroup& control, const QList<QAbstractButton*>& buttons) {
    binder.Watch(control, [&control, buttons] {
        for (int index = 0; index < buttons.size(); ++index) {
            QAbstractButton& button = *buttons[index];
            // A group of buttons keeps one of them chosen; none is chosen only outside of it.
            button.setAutoExclusive(control.Chosen() >= 0);
            button.setChecked(control.IsChosen(index));
            // The tabulator goes to the chosen one, where the arrow keys choose on.
            const bool isEntry = control.IsChosen(index) || control.Chosen() < 0;
            button.setFocusPolicy(isEntry ? Qt::StrongFocus : Qt::ClickFocus);
        }
    });
    for (int index = 0; index < buttons.size(); ++index) {
        QObject::connect(buttons[index], &QAbstractButton::clicked, buttons[index],
                         [&binder, &control, index] { binder.Event([&] { control.Choose(index); }); });
        BindPresence(binder, control, *buttons[index]);
    }
}

void Bind(Binder& binder, ListControl& control, QComboBox& comboBox) {
    auto* model = new ListModel(control, &comboBox);
    comboBox.setModel(model);
    // The box does not measure its entries, whatever their number.
    comboBox.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    comboBox.setInsertPolicy(QComboBox::NoInsert);
    binder.Watch(control, [&control, &comboBox, model] {
        model->Follow();
        ShowText(control, comboBox);
    });
    QObject::connect(&comboBox, &QComboBox::activated, &comboBox, [&binder, &control, &comboBox](int index) {
        binder.Event([&] {
            control.Set(control.At(index));
            RunIfSet(control.Click);
        });
        ShowText(control, comboBox);
    });
    if (comboBox.isEditable()) {
        comboBox.setCompleter(nullptr);
        QObject::connect(comboBox.lineEdit(), &QLineEdit::textEdited, &comboBox,
                         [&binder, &control](const QString& text) {
                             binder.Event([&] { control.Set(text.toStdU16String()); });
                         });
    }
    BindPresence(binder, control, comboBox);
}

void WhenEntered(QWidget& widget, std::function<void()> entered) {
    widget.setFocusPolicy(Qt::TabFocus);
    new EnterFilter(widget, std::move(entered));
}

void WhenLeft(QWidget& widget, std::function<void()> left) { new LeaveFilter(widget, std::move(left)); }

}  // namespace commtest
