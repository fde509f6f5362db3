#include "window/tool_window.h"

#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QScrollArea>
#include <QToolButton>
#include <QVBoxLayout>

#include "host_qt/words.h"
#include "tools/tool_modes.h"
#include "window/bindings.h"
#include "window/icons.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSmallest(880, 446);
constexpr QSize kFirst(1000, 620);
constexpr QSize kFrame(16, 48);  // what a frame may take of a small screen
constexpr int kChoicesWidth = 440;
constexpr int kEdge = 16;
constexpr int kControlHeight = 28;
constexpr int kOptionHeight = 24;
constexpr int kModeColumns = 2;
constexpr int kFirstColumnWidth = 192;
constexpr int kProtocolsInColumn = 8;
constexpr int kActionWidth = 180;
constexpr int kCopiedNote = 2000;  // milliseconds

const QString kGeometry = u"Tools/Geometry"_s;

QVBoxLayout* MakeColumn(QWidget* owner, int spacing) {
    auto* column = new QVBoxLayout(owner);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(spacing);
    return column;
}

QGridLayout* MakeOptionGrid(QWidget* owner) {
    auto* grid = new QGridLayout(owner);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(0);
    grid->setColumnMinimumWidth(0, kFirstColumnWidth);
    grid->setColumnStretch(1, 1);
    return grid;
}

QRadioButton* MakeOption(const QString& caption, const QString& tip = {}) {
    auto* option = new QRadioButton(caption);
    option->setFixedHeight(kOptionHeight);
    option->setToolTip(tip);
    return option;
}

// A caption over its field, with something of its own at the right end of the line.
QHBoxLayout* MakeCaptionLine(const QString& caption, QWidget* field, QWidget* right) {
    auto* line = new QHBoxLayout;
    line->setSpacing(16);
    line->addWidget(MakeCaption(caption, field), 1);
    line->addWidget(right);
    return line;
}

}  // namespace

ToolWindow::ToolWindow(MainForm& form, DataTools& tools, const Theme& theme, QSettings& settings)
    : tools_(tools), theme_(theme), settings_(settings), binder_(form), status_(new QStatusBar(this)) {
    setWindowFlags(Qt::Window);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(QIcon(u":/icons/app.svg"_s));
    setMinimumSize(kSmallest);
    resize(kFirst.boundedTo(screen()->availableSize() - kFrame));
    auto* panes = new QHBoxLayout;
    panes->setSpacing(0);
    panes->addWidget(MakeChoices());
    panes->addWidget(MakeHairline(Qt::Vertical));
    panes->addWidget(MakeFields(), 1);
    auto* layout = MakeColumn(this, 0);
    layout->addLayout(panes, 1);
    layout->addWidget(status_);
    FillStatusBar();
    binder_.Watch(tools_.Caption,
                  [this] { setWindowTitle(QString::fromStdU16String(tools_.Caption.Value())); });
    action_->setDefault(true);  // its dialog learns of it only here
}

// --- Left: what is done ---

QWidget* ToolWindow::MakeChoices() {
    auto* choices = new QWidget;
    auto* column = MakeColumn(choices, 8);
    column->setContentsMargins(kEdge - kFocusRoom, kEdge, kEdge, kEdge);
    column->addLayout(MakeMarkAligned(MakeTitle(Words::tr("转换方式"))));
    column->addWidget(MakeModes());
    column->addLayout(MakeMarkAligned(MakeHairline(Qt::Horizontal)));
    column->addLayout(MakeMarkAligned(MakeTitle(Words::tr("通讯协议"))));
    column->addWidget(MakeProtocols());
    auto* instruments = new QComboBox;
    Bind(binder_, tools_.ConMeterList, *instruments);
    column->addLayout(MakeMarkAligned(MakeCaptioned(u"仪表名称"_s, instruments)));
    column->addStretch(1);
    column->addLayout(MakeMarkAligned(MakeHints()));
    auto* scroll = new QScrollArea(this);
    scroll->setFixedWidth(kChoicesWidth);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->setWidget(choices);
    return scroll;
}

QWidget* ToolWindow::MakeModes() {
    auto* modes = new QWidget;
    QGridLayout* grid = MakeOptionGrid(modes);
    QList<QAbstractButton*> options;
    for (const ToolMode& mode : kToolModes) {
        auto* option = MakeOption(QString::fromStdU16String(Text(mode.caption)),
                                  QString::fromStdU16String(Text(mode.tip)));
        const int index = static_cast<int>(options.size());
        grid->addWidget(option, index / kModeColumns, index % kModeColumns);
        options += option;
    }
    Bind(binder_, tools_.OutMode, options);
    return modes;
}

QWidget* ToolWindow::MakeProtocols() {
    auto* protocols = new QWidget;
    QGridLayout* grid = MakeOptionGrid(protocols);
    for (std::size_t row = 0; row < tools_.DataCrcMode.Captions.size(); ++row) {
        auto* option = MakeOption({});
        const int index = static_cast<int>(row);
        grid->addWidget(option, index % kProtocolsInColumn, index / kProtocolsInColumn);
        protocols_ += option;
    }
    Bind(binder_, tools_.DataCrcMode, protocols_);
    binder_.Watch(tools_.DataCrcMode, [this] { ShowProtocols(); });
    return protocols;
}

// Behind Bind's own look at the control, which gives back all of the buttons.
void ToolWindow::ShowProtocols() {
    for (int index = 0; index < protocols_.size(); ++index) {
        const auto row = static_cast<std::size_t>(index);
        protocols_[index]->setText(QString::fromStdU16String(tools_.DataCrcMode.Captions[row]));
        protocols_[index]->setEnabled(row < tools_.ProtocolCodes.size());
    }
}

QWidget* ToolWindow::MakeHints() {
    auto* hints = new QWidget;
    auto* column = MakeColumn(hints, 8);
    for (
        const QString& text :
        {u"1:十六进制数据是以空格或 \\ 符号相隔开,如 40 30 31\\52\\44...,也可与Ascii码混合输入,如 @ 30 31 R 44 31 37\\0D"_s,
         u"2:浮点数 目前仅在TQ智能流量类仪表中出现,用4个字节表示"_s,
         u"3:浮点数与数值之间相互转换中存在着很小的误差"_s})
        column->addWidget(MakeHint(text));
    return hints;
}

// --- Right: from the input to the explanation ---

QWidget* ToolWindow::MakeFields() {
    auto* fields = new QWidget(this);
    auto* column = MakeColumn(fields, 8);
    column->setContentsMargins(kEdge, kEdge, kEdge, kEdge);
    column->addWidget(MakeInput());
    column->addWidget(MakeNormalised());
    column->addWidget(MakeResult());
    column->addWidget(MakeExplanation(), 1);
    return fields;
}

QWidget* ToolWindow::MakeInput() {
    input_ = new QLineEdit;
    input_->setFont(Theme::MonoFont());
    Bind(binder_, tools_.OutString[0], *input_);
    return MakeCaptioned(u"输入数据"_s, input_);
}

QLineEdit* ToolWindow::MakeField(TextControl& control, const QString& name) {
    auto* field = new QLineEdit;
    field->setObjectName(name);
    field->setFont(Theme::MonoFont());
    field->setReadOnly(true);
    Bind(binder_, control, *field);
    binder_.Watch(control, [field] { field->home(false); });
    return field;
}

QWidget* ToolWindow::MakeNormalised() {
    auto* forms = new QWidget;
    auto* line = new QHBoxLayout(forms);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(16);
    QList<QAbstractButton*> options;
    for (const Text& caption : tools_.ConShowType.Captions) {
        options += MakeOption(QString::fromStdU16String(caption));
        line->addWidget(options.back());
    }
    Bind(binder_, tools_.ConShowType, options);
    QLineEdit* field = MakeField(tools_.OutString[3], u"normalised"_s);
    SetLook(*field, Look::Given);
    field->setToolTip(u"自动将输入数据转换成标准\\统一的写法"_s);
    auto* piece = new QWidget;
    QVBoxLayout* column = MakeColumn(piece, 0);
    column->addLayout(MakeCaptionLine(u"数据整理"_s, field, forms));
    column->addWidget(field);
    return piece;
}

QPushButton* ToolWindow::MakeButton(int index) {
    TextControl& control = tools_.Command1[static_cast<std::size_t>(index)];
    auto* button = new QPushButton;
    binder_.Watch(control,
                  [button, &control] { button->setText(QString::fromStdU16String(control.Value())); });
    connect(button, &QPushButton::clicked, this,
            [this, index] { binder_.Event([this, index] { Command1_Click(tools_, index); }); });
    return button;
}

QWidget* ToolWindow::MakeResult() {
    QLineEdit* field = MakeField(tools_.OutString[1], u"result"_s);
    binder_.Watch(tools_.OutString[1], [field] { field->setToolTip(field->text()); });
    action_ = MakeButton(0);
    SetLook(*action_, Look::Primary);
    action_->setMinimumWidth(kActionWidth);
    action_->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus in the input
    auto* piece = new QWidget;
    auto* grid = new QGridLayout(piece);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    grid->setVerticalSpacing(0);
    grid->setColumnStretch(0, 1);
    grid->addLayout(
        MakeCaptionLine(u"输出结果"_s, field, MakeCopyButton(Words::tr("复制输出结果"), tools_.OutString[1])),
        0, 0);
    grid->addWidget(field, 1, 0);
    grid->addWidget(action_, 1, 1);
    grid->addWidget(MakeButton(1), 1, 2);
    return piece;
}

QWidget* ToolWindow::MakeExplanation() {
    const TextControl& control = tools_.OutString[2];
    auto* pane = new QPlainTextEdit;
    SetLook(*pane, Look::Lined);
    pane->setFont(Theme::MonoFont());
    pane->setReadOnly(true);
    pane->setTabChangesFocus(true);
    pane->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    binder_.Watch(control,
                  [pane, &control] { pane->setPlainText(QString::fromStdU16String(control.Value())); });
    auto* piece = new QWidget;
    QVBoxLayout* column = MakeColumn(piece, 0);
    column->addLayout(
        MakeCaptionLine(Words::tr("计算过程"), pane, MakeCopyButton(Words::tr("复制计算过程"), control)));
    column->addWidget(pane, 1);
    return piece;
}

// Copies the text itself: a field shows its line ends only as blanks.
QWidget* ToolWindow::MakeCopyButton(const QString& name, const TextControl& source) {
    auto* button = new QToolButton;
    SetLook(*button, Look::Flat);
    button->setText(Words::tr("复制"));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFixedHeight(kControlHeight);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(name);
    button->setToolTip(name);
    const auto draw = [this, button] {
        const Tokens& tokens = theme_.Now();
        button->setIcon(TwoToneIcon(u"copy"_s, tokens.ink, tokens.accent, tokens.disabled));
    };
    draw();
    connect(&theme_, &Theme::Changed, button, draw);
    binder_.Watch(source, [button, &source] { button->setEnabled(!source.Value().empty()); });
    connect(button, &QToolButton::clicked, this, [this, &source] {
        QGuiApplication::clipboard()->setText(QString::fromStdU16String(source.Value()));
        status_->showMessage(Words::tr("已复制"), kCopiedNote);
    });
    return button;
}

void ToolWindow::FillStatusBar() {
    auto* clock = new QLabel(this);
    ShowAsCaption(*clock);
    Bind(binder_, tools_.StatusBar1, *clock);
    status_->setSizeGripEnabled(false);
    status_->setContentsMargins(kEdge, 0, kEdge, 0);
    status_->addPermanentWidget(clock);
}

// --- Opening and closing ---

void ToolWindow::Follow() {
    if (!tools_.Window.Visible()) return hide();
    if (!isVisible()) restoreGeometry(settings_.value(kGeometry).toByteArray());
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    input_->setFocus();
    input_->selectAll();
}

void ToolWindow::SaveState() {
    if (isVisible()) settings_.setValue(kGeometry, saveGeometry());
}

void ToolWindow::reject() { close(); }

void ToolWindow::closeEvent(QCloseEvent* event) {
    SaveState();
    binder_.Event([this] { Command1_Click(tools_, 1); });
    event->accept();
}

}  // namespace commtest
