#include "window/port_page.h"

#include <QApplication>
#include <QScrollArea>

#include "session/port_settings.h"
#include "window/bindings.h"
#include "window/empty_pages.h"
#include "window/help_view.h"
#include "window/pieces.h"
#include "window/port_box.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFormWidth = 288;
constexpr int kPortRow = 1;  // what is said of the port below it, then the other fields

}  // namespace

PortPage::PortPage(Binder& binder, const Theme& theme, QWidget* parent) : QWidget(parent), binder_(binder) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeForm(theme));
    layout->addWidget(MakeHairline(Qt::Vertical));
    layout->addWidget(new HelpView(binder, theme, binder.Form().RichTextBox1, this), 1);
}

QWidget* PortPage::MakeForm(const Theme& theme) {
    auto* scroll = new QScrollArea(this);
    scroll->setFixedWidth(kFormWidth);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setFocusPolicy(Qt::NoFocus);
    auto* contents = new QWidget;
    contents->setObjectName(u"portForm"_s);
    auto* grid = new QGridLayout(contents);
    grid->setContentsMargins(12, 12, 12, 12);
    grid->setSpacing(8);
    grid->setColumnStretch(1, 1);
    grid->addWidget(MakeTitle(u"串口属性"_s), 0, 0, 1, 2);
    int index = 0;
    for (const TextView caption : binder_.Form().texts.captions.portFields)
        AddField(*grid, index++, ToQt(caption), contents);
    const int behind = grid->rowCount();
    grid->addWidget(MakeCaption(u"提示: 串口设置将自动生效"_s), behind, 0, 1, 2);
    grid->addWidget(MakeNoPortState(binder_, theme, contents), behind + 1, 0, 1, 2);
    grid->setRowStretch(behind + 2, 1);
    scroll->setWidget(contents);
    return scroll;
}

void PortPage::AddField(QGridLayout& grid, int index, const QString& caption, QWidget* parent) {
    ListControl& control = binder_.Form().ConCommSetting[static_cast<std::size_t>(index)];
    QComboBox* field = index == 0 ? MakePortField(grid, control, parent) : MakeField(index, control, parent);
    field->setAccessibleName(caption.chopped(1));
    const int row = index == 0 ? kPortRow : kPortRow + 1 + index;
    grid.addWidget(new QLabel(caption, parent), row, 0);
    grid.addWidget(field, row, 1);
}

QComboBox* PortPage::MakePortField(QGridLayout& grid, ListControl& control, QWidget* parent) {
    auto* field = new PortBox(binder_, control, parent);
    connect(field, &PortBox::Taken, this, &PortPage::Apply);
    grid.addWidget(&field->Refusal(), kPortRow + 1, 1, Qt::AlignLeft);
    return field;
}

QComboBox* PortPage::MakeField(int index, ListControl& control, QWidget* parent) {
    auto* field = new QComboBox(parent);
    field->setEditable(index == 1);
    Bind(binder_, control, *field);
    connect(field, &QComboBox::activated, this, &PortPage::Apply);
    if (field->isEditable()) connect(field->lineEdit(), &QLineEdit::returnPressed, this, &PortPage::Apply);
    // The field's own list takes the focus only for a while.
    WhenLeft(*field, [this] {
        if (QApplication::activePopupWidget() == nullptr) Apply();
    });
    return field;
}

void PortPage::Apply() {
    binder_.Event([this] { ConCommSetting_LostFocus(binder_.Form()); });
}

}  // namespace commtest
