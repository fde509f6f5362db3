#include "window/tab_row.h"

#include <QHBoxLayout>
#include <QRadioButton>

#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/filter_box.h"
#include "window/follow_tick.h"
#include "window/icons.h"
#include "window/look.h"
#include "window/pieces.h"
#include "window/window_face.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeight = 33;
constexpr int kIconSize = 20;
constexpr int kBorderLength = 16;

}  // namespace

TabRow::TabRow(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      sidebarButton_(new QToolButton(this)),
      tabs_(new QTabBar(this)),
      filter_(new FilterBox(theme, FaceOf(binder.Form()).layout.filterWidth, this)),
      follow_(new FollowTick(binder, this)) {
    setFixedHeight(kHeight);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 12, 0);
    layout->setSpacing(8);

    SetLook(*sidebarButton_, Look::Flat);
    sidebarButton_->setIconSize({kIconSize, kIconSize});
    sidebarButton_->setAccessibleName(ToQt(binder.Form().texts.captions.instrumentSelection));
    sidebarButton_->setFocusPolicy(Qt::StrongFocus);
    const auto showIcon = [this, &theme] {
        const Tokens& tokens = theme.Now();
        sidebarButton_->setIcon(TwoToneIcon(u"sidebar"_s, tokens.ink, tokens.accent, tokens.disabled));
    };
    connect(&theme, &Theme::Changed, this, showIcon);
    showIcon();
    layout->addWidget(sidebarButton_);

    MainForm& form = binder.Form();
    for (const QString& caption : {u"通讯内容"_s, u"串口设置"_s, u"仪表清单"_s, u"演示数据"_s, u"错误记录"_s})
        tabs_->addTab(caption);
    tabs_->setDrawBase(false);
    tabs_->setExpanding(false);
    tabs_->setAccessibleName(Words::tr("页面"));
    binder.Watch(form.SSTab2, [this, &form] {
        const QSignalBlocker asShown(tabs_);
        tabs_->setCurrentIndex(form.SSTab2.Chosen());
    });
    connect(tabs_, &QTabBar::currentChanged, this,
            [&binder, &form](int index) { binder.Event([&] { form.SSTab2.Choose(index); }); });
    layout->addWidget(tabs_, 0, Qt::AlignBottom);
    layout->addStretch();
    layout->addWidget(filter_);
    layout->addWidget(follow_);
    if (form.switches.multiRegisterWrite) AddWriteTypes(binder);
}

// The tabs and what stands beside them go before the whole filter.
void TabRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const QMargins margins = layout()->contentsMargins();
    int needed = margins.left() + margins.right() + filter_->FieldWidth();
    for (int item = 0; item < layout()->count(); ++item) {
        const QWidget* piece = layout()->itemAt(item)->widget();
        if (piece != nullptr && piece != filter_ && !piece->isHidden())
            needed += piece->sizeHint().width() + layout()->spacing();
    }
    filter_->SetFolded(needed > width());
}

void TabRow::AddWriteTypes(Binder& binder) {
    layout()->addWidget(MakeHairline(Qt::Vertical, kBorderLength));
    QList<QAbstractButton*> options;
    for (const QString& caption : {u" 参数双字节修改"_s, u" 参数四字节修改"_s, u" 参数批量修改"_s}) {
        auto* option = new QRadioButton(caption, this);
        SetLook(*option, Look::Tight);
        options += option;
        layout()->addWidget(option);
    }
    Bind(binder, binder.Form().WriteType, options);
}

}  // namespace commtest
