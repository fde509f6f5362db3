#include "window/first_steps.h"

#include <QHBoxLayout>
#include <QPainter>
#include <chrono>

#include "host/serial_port.h"
#include "host_qt/words.h"
#include "window/glyphs.h"
#include "window/pieces.h"
#include "window/step_text.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 16;
constexpr auto kBehindTheFirstPicture = std::chrono::milliseconds(100);
constexpr auto kLookAtPlugs = std::chrono::seconds(2);
constexpr int kRingSize = 20;
constexpr int kTickSize = 12;
constexpr int kGap = 8;  // as wide as the padding of an action, whose word stands under the text

QPixmap RingOf(int number, bool isDone, const Tokens& tokens, qreal ratio) {
    QPixmap ring(QSize(kRingSize, kRingSize) * ratio);
    ring.setDevicePixelRatio(ratio);
    ring.fill(Qt::transparent);
    QPainter painter(&ring);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(tokens.accent, 1.5));
    painter.drawEllipse(QRectF(1, 1, kRingSize - 2, kRingSize - 2));
    if (isDone) {
        constexpr int kEdge = (kRingSize - kTickSize) / 2;
        painter.drawPixmap(kEdge, kEdge, GlyphPicture(Glyph::Tick, tokens.accent, kTickSize, ratio));
    } else {
        painter.setFont(Theme::MonoFont());
        painter.drawText(QRect(0, 0, kRingSize, kRingSize), Qt::AlignCenter, QString::number(number));
    }
    return ring;
}

}  // namespace

FirstStep::FirstStep(int number, const QString& title, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      number_(number),
      title_(title),
      ring_(new QLabel(this)),
      text_(new StepText(this)) {
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(kMargin, kMargin, kMargin, 12);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap);
    grid->addWidget(ring_, 0, 0);
    grid->addWidget(MakeTitle(title), 0, 1);
    grid->addWidget(text_, 1, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    connect(&theme, &Theme::Changed, this, &FirstStep::ShowRing);
    ShowRing();
}

void FirstStep::SetAction(const QString& caption, const QString& key, std::function<void()> act) {
    QPushButton* action = MakeLineAction(caption);
    connect(action, &QPushButton::clicked, this, std::move(act));
    auto* line = new QHBoxLayout;
    line->setContentsMargins(kRingSize, 0, 0, 0);
    line->setSpacing(0);
    line->addWidget(action);
    line->addWidget(MakeCaption(key));
    line->addStretch();
    static_cast<QGridLayout*>(layout())->addLayout(line, 3, 0, 1, 2);
}

void FirstStep::SetDone(bool done) {
    if (isDone_ == done) return;
    isDone_ = done;
    ShowRing();
}

void FirstStep::ShowRing() {
    ring_->setPixmap(RingOf(number_, isDone_, theme_.Now(), devicePixelRatioF()));
    setAccessibleName(
        (isDone_ ? Words::tr("第 %1 步，%2，已完成") : Words::tr("第 %1 步，%2")).arg(number_).arg(title_));
}

FirstSteps::FirstSteps(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      form_(binder.Form()),
      port_(new FirstStep(1, Words::tr("选串口"), theme, this)),
      instrument_(new FirstStep(2, Words::tr("选仪表"), theme, this)),
      start_(new FirstStep(3, Words::tr("按 F5 开始通讯"), theme, this)),
      instrumentAtFirst_(form_.InstrumentList().Generation()),
      addressAtFirst_(form_.ConMeterAddr.Generation()) {
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    setAccessibleName(Words::tr("第一次通讯"));
    port_->SetAction(u"串口设置"_s, u"Ctrl+2"_s, [this] { emit PortPageWanted(); });
    instrument_->SetText(Words::tr("在左侧选协议、名称，填仪表地址\n不知道地址时可用 仪表搜索"));
    instrument_->SetAction(u"仪表搜索"_s, u"Ctrl+F"_s, [this] { emit SearchWanted(); });
    start_->SetText(Words::tr("收发的帧显示在这里，数值填入上表\n单击 修改值 一格即可写入参数"));
    start_->SetAction(ToQt(form_.texts.start), u"F5"_s, [this] { emit StartWanted(); });
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (FirstStep* step : {port_, instrument_, start_}) {
        layout->addWidget(step, 1);
        layout->addWidget(MakeHairline(Qt::Vertical));
    }
    layout->addWidget(MakeTrial(), 1);
    // To look for ports takes the machine a while: the window is painted first.
    QTimer::singleShot(kBehindTheFirstPicture, this,
                       [this, &binder] { binder.Watch(form_.StatusBar1[1], [this] { FollowPort(); }); });
    connect(&plugs_, &QTimer::timeout, this, [this] {
        if (isVisible()) FollowPort();
    });
    plugs_.start(kLookAtPlugs);
}

QWidget* FirstSteps::MakeTrial() {
    auto* trial = new QWidget(this);
    auto* button = new QPushButton(Words::tr("用模拟仪表试一试"), trial);
    connect(button, &QPushButton::clicked, this, &FirstSteps::SimulatorWanted);
    auto* text = new StepText(trial);
    text->setText(Words::tr("接一台模拟仪表到 COM1 并开始通讯，\n可读可写，随时可停"));
    auto* layout = new QVBoxLayout(trial);
    layout->setContentsMargins(kMargin, kMargin + 2, kMargin, 12);
    layout->setSpacing(10);
    layout->addWidget(MakeTitle(Words::tr("手边没有仪表?")));
    layout->addWidget(text);
    layout->addStretch();
    layout->addWidget(button, 0, Qt::AlignLeft);
    return trial;
}

void FirstSteps::Follow() {
    instrument_->SetDone(form_.InstrumentList().Generation() != instrumentAtFirst_ ||
                         form_.ConMeterAddr.Generation() != addressAtFirst_);
    start_->SetDone(form_.IsRunning());
}

// Behind each change of the port or its settings.
void FirstSteps::FollowPort() {
    const QString device = QString::fromStdU16String(form_.MSComm1.Device());
    const QString settings = QString::fromStdU16String(form_.MSComm1.Settings());
    const QString port = u"COM%1"_s.arg(form_.MSComm1.CommPort());
    port_->SetText(device.isEmpty() ? Words::tr("%1：没有找到串口\n插入转换器后再打开列表").arg(port)
                                    : Words::tr("%1 — %2\n%3，须与仪表一致").arg(port, device, settings));
    port_->SetDone(!device.isEmpty());
}

}  // namespace commtest
