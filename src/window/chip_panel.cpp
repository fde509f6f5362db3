#include "window/chip_panel.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <array>
#include <set>

#include "catalogue/chip_records.h"
#include "host_qt/words.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTextHeight = 56;
constexpr int kListHeight = 26 + 4 * 22;  // headings and a few rows, at least

struct Field {
    QStringView caption;
    bool isCode = false;
};

constexpr std::array<Field, 6> kFields = {
    {{u"仪表名称"}, {u"编号", true}, {u"CPU文件名", true}, {u"输入日期", true}, {u"实例"}, {u"属性"}}};

QLineEdit* MakeField(Binder& binder, const ListControl& control, bool isCode) {
    auto* edit = new QLineEdit;
    edit->setReadOnly(true);
    if (isCode) edit->setFont(Theme::MonoFont());
    binder.Watch(control, [edit, &control] {
        edit->setText(ToQt(control.Value()));
        edit->setCursorPosition(0);
        edit->setToolTip(edit->text());
    });
    return edit;
}

QPushButton* MakeDeadButton(const QString& caption) {
    auto* button = new QPushButton(caption);
    button->setEnabled(false);
    button->setToolTip(Words::tr("仅供查看"));
    button->setAccessibleDescription(Words::tr("仅供查看"));
    return button;
}

}  // namespace

ChipPanel::ChipPanel(Binder& binder, const Theme& theme, QWidget* parent)
    : QScrollArea(parent), binder_(binder), form_(binder.Form()), counts_(MakeCaption({})) {
    setAccessibleName(u"CPU资料档案"_s);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setMinimumWidth(kNarrowest);
    auto* contents = new QWidget;
    auto* layout = new QVBoxLayout(contents);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(8);
    layout->addWidget(MakeHead());
    layout->addWidget(MakeList(theme), 1);
    layout->addWidget(MakeFields());
    if (form_.switches.chipDescription) layout->addWidget(MakeText());
    layout->addWidget(MakeButtons());
    setWidget(contents);
    hide();
    binder.Watch(form_.ConCpuDataShow, [this] { Follow(); });
    binder.Watch(form_.MSHFlexGrid1[3], [this] { CountRecords(); });
}

QWidget* ChipPanel::MakeHead() {
    auto* head = new QWidget;
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(MakeTitle(u"CPU资料档案"_s));
    layout->addStretch();
    layout->addWidget(counts_);
    return head;
}

QWidget* ChipPanel::MakeList(const Theme& theme) {
    auto* frame = new QFrame;
    SetLook(*frame, Look::LineFrame);
    frame->setMinimumHeight(kListHeight);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(1, 1, 1, 1);
    list_ = new GridView(binder_, theme, 3, frame);
    layout->addWidget(list_);
    return frame;
}

QWidget* ChipPanel::MakeFields() {
    auto* fields = new QWidget;
    auto* layout = new QGridLayout(fields);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (std::size_t index = 0; index < kFields.size(); ++index) {
        const Field& field = kFields[index];
        QLineEdit* edit = MakeField(binder_, form_.ConCpudataCombo[index], field.isCode);
        const int place = static_cast<int>(index);
        layout->addWidget(MakeCaptioned(field.caption.toString(), edit), place / 2, place % 2);
    }
    return fields;
}

QWidget* ChipPanel::MakeText() {
    auto* text = new QPlainTextEdit;
    SetLook(*text, Look::Boxed);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setFixedHeight(kTextHeight);
    text->setAccessibleName(u"功能简述"_s);
    const TextControl& control = form_.ConCpudataText;
    binder_.Watch(control, [text, &control] { text->setPlainText(ToQt(control.Value())); });
    return text;
}

QWidget* ChipPanel::MakeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    for (const QString& caption : {u"保存新增"_s, u"保存修改"_s, u"删除记录"_s})  // Q228
        layout->addWidget(MakeDeadButton(caption));
    layout->addStretch();
    auto* close = new QPushButton(u"退出界面"_s);
    connect(close, &QPushButton::clicked, this, [this] { Press(chip_button::kClose); });
    layout->addWidget(close);
    return row;
}

void ChipPanel::Follow() {
    const bool shown = form_.ConCpuDataShow.Visible();
    if (shown == !isHidden()) return;
    setVisible(shown);
    shown ? emit Opened() : emit Closed();
}

void ChipPanel::CountRecords() {
    const Grid& grid = form_.MSHFlexGrid1[3];
    std::set<Text> instruments;
    int records = 0;
    for (int row = 1; row < grid.Rows(); ++row) {
        instruments.insert(grid.Cell(row, chip_column::kInstrumentKey));
        records += !grid.Cell(row, chip_column::kChip).empty();
    }
    counts_->setText(
        Words::tr("%1 台仪表，%2 份资料")
            .arg(GroupedNumber(static_cast<qint64>(instruments.size())), GroupedNumber(records)));
}

void ChipPanel::Press(int button) {
    binder_.Event([&] { ConCpuDataCommand_Click(form_, button); });
}

void ChipPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Press(chip_button::kClose);
    } else {
        QScrollArea::keyPressEvent(event);
    }
}

}  // namespace commtest
