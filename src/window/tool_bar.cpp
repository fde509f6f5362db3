#include "window/tool_bar.h"

#include <QHBoxLayout>
#include <QMenu>
#include <array>
#include <utility>

#include "commands/toolbar_commands.h"
#include "window/editing_stop.h"
#include "window/icons.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kExportMenu = 8;
constexpr int kToolsMenu = 10;
constexpr int kIconSize = 20;
constexpr int kHeight = 44;

struct ButtonRow {
    int index;
    QStringView caption;
    QStringView tip;
    QStringView icon;
    bool beginsGroup = false;
};

// Button 4 shows the state of the session, its caption is not of this table. Q185: 5 to 7 do nothing.
constexpr std::array<ButtonRow, 10> kButtons = {
    {{2, u"导入地址", u"重新从TQ.Dev文件中导入仪表参数地址数据", u"import-address"},
     {3, u"仪表搜索", u"自动搜索仪表", u"search-instrument"},
     {4, u"", u"开始/停止仪联", u"start", true},
     {5, u"通讯事件", u"查询通讯错误事件", u"comm-events", true},
     {6, u"历史数据", u"所有历史通讯数据", u"history"},
     {7, u"清空数据", u"清空历史数据", u"clear-data"},
     {8, u"导出数据", u"导出数据到Excel文件中", u"export-data"},
     {9, u"特殊地址", u"循环生成多路仪表的参数地址表", u"special-address", true},
     {10, u"系统工具", u"自定义通讯格式", u"system-tools"},
     {11, u"退出系统", u"退出本系统", u"quit"}}};

QString NameOf(int index) { return u"toolbar%1"_s.arg(index); }

}  // namespace

ToolBar::ToolBar(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent), binder_(binder), theme_(theme) {
    setAttribute(Qt::WA_StyledBackground);
    SetLook(*this, Look::Band);
    setFixedHeight(kHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 8, 1);
    layout->setSpacing(8);
    for (const ButtonRow& row : kButtons) {
        if (row.beginsGroup) layout->addWidget(MakeHairline(Qt::Vertical, 20));
        if (row.index == toolbar::kLeave) layout->addStretch();
        layout->addWidget(MakeButton(row.index));
        Button(row.index).setText(row.caption.toString());
        Button(row.index).setToolTip(row.tip.toString());
    }
    AddMenu(kExportMenu, {ToolbarEntry::ExportCurrentTable, ToolbarEntry::ExportAllTables});
    AddMenu(kToolsMenu,
            {ToolbarEntry::ToolWindow, ToolbarEntry::OperationMenu, ToolbarEntry::ReloadParameters});

    const MainForm& form = binder.Form();
    Button(toolbar::kSearch).setCheckable(true);
    binder.Watch(form.FindFrame,
                 [this, &form] { Button(toolbar::kSearch).setChecked(form.FindFrame.Visible()); });
    SetLook(Button(toolbar::kStartStop), Look::ToolBarPrimary);
    binder.Watch(form.RunningState(), [this] { ShowStartStop(); });
    binder.AtEachLook([this, &form, wasForEditing = false]() mutable {
        const bool isForEditing = IsStoppedForEditing(form);
        if (std::exchange(wasForEditing, isForEditing) != isForEditing) ShowStartStop();
    });
    connect(&theme, &Theme::Changed, this, &ToolBar::ShowIcons);
    ShowIcons();
}

QToolButton& ToolBar::Button(int index) const { return *findChild<QToolButton*>(NameOf(index)); }

QToolButton* ToolBar::MakeButton(int index) {
    auto* button = new QToolButton(this);
    button->setObjectName(NameOf(index));
    SetLook(*button, Look::ToolBar);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize({kIconSize, kIconSize});
    button->setFocusPolicy(Qt::StrongFocus);
    connect(button, &QToolButton::clicked, this, [this, index] {
        Press(index);
        // A checked button follows the panel, not the click.
        Button(toolbar::kSearch).setChecked(binder_.Form().FindFrame.Visible());
    });
    return button;
}

void ToolBar::Press(int index) {
    if (const auto taken = taken_.find(index); taken != taken_.end()) {
        taken->second();
    } else {
        binder_.Event([&] { RunToolbarCommand(binder_.Form(), index); });
    }
}

QAction* ToolBar::AddEntry(int index, const QString& caption, std::function<void()> action) {
    QAction* entry = Button(index).menu()->addAction(caption);
    connect(entry, &QAction::triggered, this, std::move(action));
    return entry;
}

QAction* ToolBar::Entry(ToolbarEntry entry) const {
    for (const int index : {kExportMenu, kToolsMenu}) {
        for (QAction* action : Button(index).menu()->actions()) {
            if (action->text() == ToQt(CaptionOf(entry))) return action;
        }
    }
    return nullptr;
}

void ToolBar::Choose(ToolbarEntry entry) {
    if (const auto taken = takenEntries_.find(entry); taken != takenEntries_.end()) return taken->second();
    if (entry == ToolbarEntry::OperationMenu) emit OperationMenuWanted();
    binder_.Event([&] { ToolbarMenuCommand(binder_.Form(), entry); });
}

void ToolBar::AddMenu(int index, std::initializer_list<ToolbarEntry> entries) {
    auto* menu = new QMenu(&Button(index));
    menu->setToolTipsVisible(true);
    for (const ToolbarEntry entry : entries) {
        const QString caption = QString::fromStdU16String(Text(CaptionOf(entry)));
        connect(menu->addAction(caption), &QAction::triggered, this, [this, entry] { Choose(entry); });
    }
    QToolButton& button = Button(index);
    button.setPopupMode(QToolButton::InstantPopup);
    button.setMenu(menu);
}

void ToolBar::ShowStartStop() {
    QToolButton& button = Button(toolbar::kStartStop);
    button.setText(QString::fromStdU16String(Text(binder_.Form().StartStopCaption())));
    const bool isTinted = binder_.Form().IsRunning() || IsStoppedForEditing(binder_.Form());
    SetLook(button, isTinted ? Look::ToolBarTinted : Look::ToolBarPrimary);
    ShowIcons();
}

void ToolBar::ShowIcons() {
    const Tokens& tokens = theme_.Now();
    for (const ButtonRow& row : kButtons) {
        const bool isPrimary = row.index == toolbar::kStartStop;
        const bool isRunning = isPrimary && binder_.Form().IsRunning();
        const bool isTinted = isRunning || IsStoppedForEditing(binder_.Form());
        const QColor primary = isTinted ? tokens.accent : tokens.onAccent;
        const QString name = isRunning ? u"stop"_s : row.icon.toString();
        Button(row.index).setIcon(TwoToneIcon(name, isPrimary ? primary : tokens.ink,
                                              isPrimary ? primary : tokens.accent, tokens.disabled));
    }
}

void ToolBar::SetCompact(bool compact) {
    for (const ButtonRow& row : kButtons) {
        const bool hasCaption =
            !compact || row.index == toolbar::kStartStop || Button(row.index).icon().isNull();
        Button(row.index).setToolButtonStyle(hasCaption ? Qt::ToolButtonTextBesideIcon
                                                        : Qt::ToolButtonIconOnly);
    }
}

}  // namespace commtest
