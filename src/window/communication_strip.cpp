#include "window/communication_strip.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "session/records.h"
#include "window/asking_tick.h"
#include "window/bindings.h"
#include "window/look.h"
#include "window/pieces.h"
#include "window/sent_frames.h"
#include "window/theme.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineHeight = 28;
constexpr int kMargin = 4;
constexpr int kFrameWidth = 172;
constexpr int kIntervalWidth = 88;
constexpr int kLongestInterval = 65535;  // milliseconds
constexpr int kBorderLength = 16;

QHBoxLayout* MakeLine() {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    return line;
}

}  // namespace

CommunicationStrip::CommunicationStrip(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      firstLine_(MakeLine()),
      secondLine_(MakeLine()),
      pace_(new QWidget(this)),
      paceBorder_(MakeHairline(Qt::Vertical, kBorderLength)),
      state_(new StateLine(binder, theme, this)) {
    setAutoFillBackground(true);
    auto* lines = new QVBoxLayout;
    lines->setContentsMargins(12, kMargin, 12, kMargin);
    lines->setSpacing(kMargin);
    lines->addLayout(firstLine_);
    lines->addLayout(secondLine_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(lines, 1);
    layout->addWidget(state_);
    layout->addWidget(MakeHairline(Qt::Horizontal));
    AddSentFrame(binder);
    AddShowModes(binder);
    FillPace(binder);
    firstLine_->addWidget(pace_);
    AddPaneSwitch(binder);
    SetCompact(false);
    connect(state_, &StateLine::Changed, this, &CommunicationStrip::FitHeight);
}

void CommunicationStrip::SetCompact(bool compact) {
    QHBoxLayout* from = compact ? firstLine_ : secondLine_;
    QHBoxLayout* to = compact ? secondLine_ : firstLine_;
    from->removeWidget(pace_);
    if (to->indexOf(pace_) < 0) to->insertWidget(compact ? 0 : to->count() - 1, pace_);
    paceBorder_->setVisible(!compact);
    isCompact_ = compact;
    FitHeight();
}

void CommunicationStrip::SetLow(bool low) {
    isLow_ = low;
    FitHeight();
}

void CommunicationStrip::FitHeight() {
    const int lines = isCompact_ ? 2 : 1;
    const bool showsState = !isLow_ || state_->SaysMoreThanTheOperation();
    state_->setVisible(showsState);
    setFixedHeight(lines * (kLineHeight + kMargin) + kMargin + (showsState ? StateLine::kHeight : 0) + 1);
}

void CommunicationStrip::AddSentFrame(Binder& binder) {
    auto* frame = new SentFrames(binder, this);
    frame->setMinimumWidth(kFrameWidth);
    auto* label = new QLabel(u"发送数据"_s, this);
    frame->setAccessibleName(label->text());
    firstLine_->addWidget(label);
    firstLine_->addWidget(frame, 1);
}

void CommunicationStrip::AddShowModes(Binder& binder) {
    const Captions& captions = binder.Form().texts.captions;
    auto* ascii = new QRadioButton(ToQt(captions.ascii), this);  // Q186: spelled so
    ascii->setToolTip(u"对Modbus等协议可能出现不可见的字符"_s);
    auto* hexadecimal = new QRadioButton(ToQt(captions.hexadecimal), this);
    for (QRadioButton* mode : {ascii, hexadecimal}) {
        SetLook(*mode, Look::Tight);
        firstLine_->addWidget(mode);
    }
    Bind(binder, binder.Form().ShowMode, {ascii, hexadecimal});
}

void CommunicationStrip::FillPace(Binder& binder) {
    MainForm& form = binder.Form();
    QHBoxLayout* line = MakeLine();
    pace_->setLayout(line);
    auto* label = new QLabel(u"通讯间隔"_s, pace_);
    label->setToolTip(u"通讯间隔时间"_s);
    auto* interval = new TextSpinBox(pace_);
    interval->setObjectName(u"ConDelayTime"_s);
    interval->setFixedWidth(kIntervalWidth);
    interval->setToolTip(u"通讯间隔时间设置"_s);
    interval->setAccessibleName(label->text());
    interval->SetRange(0, kLongestInterval);
    Bind(binder, form.ConDelayTime, *interval);
    binder.Watch(form.ConDelayTime, [interval, &form] { interval->SetStep(form.DelayStep); });
    auto* multi = new QCheckBox(u"多台通讯"_s, pace_);
    multi->setToolTip(u"支持多台任意有效仪表地址"_s);
    BindAskingTick(binder, form.Check1, *multi);
    line->addWidget(paceBorder_);
    line->addWidget(label);
    line->addWidget(interval);
    line->addWidget(MakeCaption(u"毫秒"_s));
    line->addWidget(MakeHairline(Qt::Vertical, kBorderLength));
    line->addWidget(multi);
    if (form.switches.intervalTimer) {
        auto* pauses = new QCheckBox(u"间歇性通讯"_s, pace_);
        BindAskingTick(binder, form.TimeSetup, *pauses);
        line->addWidget(pauses);
    }
    line->addStretch();
}

void CommunicationStrip::AddPaneSwitch(Binder& binder) {
    auto* paneSwitch = new QPushButton(ToQt(binder.Form().texts.captions.displaySwitch), this);
    paneSwitch->setToolTip(u"可显示数据转换过程"_s);
    connect(paneSwitch, &QPushButton::clicked, this,
            [&binder] { binder.Event([&binder] { ConShowCommand_Click(binder.Form()); }); });
    firstLine_->addWidget(paneSwitch);
}

}  // namespace commtest
