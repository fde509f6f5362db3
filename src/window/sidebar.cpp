#include "window/sidebar.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "catalogue/instrument_selection.h"
#include "host_qt/words.h"
#include "window/address_field.h"
#include "window/bindings.h"
#include "window/list_browsing.h"
#include "window/look.h"
#include "window/pieces.h"
#include "window/window_face.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFewestOptions = 14;
constexpr int kFewestOptionsInView = 5;
constexpr int kMostOptionsInView = 14;
constexpr int kLargestCount = 255;
constexpr int kTickHeight = 20;
constexpr int kGapOfTicks = 4;

QComboBox* MakeList(Binder& binder, ListControl& control, const QString& name, const QString& tip) {
    auto* box = new QComboBox;
    box->setAccessibleName(name);
    box->setToolTip(tip);
    box->setMinimumContentsLength(4);
    Bind(binder, control, *box);
    BrowseBeforeChoosing(*box);
    return box;
}

TextSpinBox* MakeSpinBox(Binder& binder, TextControl& control, const QString& tip) {
    auto* box = new TextSpinBox;
    box->setToolTip(tip);
    Bind(binder, control, *box);
    return box;
}

}  // namespace

Sidebar::Sidebar(Binder& binder, NoteBar& notes, QWidget* parent) : QScrollArea(parent), binder_(binder) {
    setMinimumWidth(kNarrowest);
    setMaximumWidth(kWidest);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    auto* contents = new QWidget;
    auto* layout = new QVBoxLayout(contents);
    layout->setContentsMargins(12 - kFocusRoom, 8, 12, 8);
    layout->setSpacing(8);
    layout->addLayout(MakeMarkAligned(MakeFields(binder, notes)));
    layout->addLayout(MakeMarkAligned(MakeHairline(Qt::Horizontal)));
    layout->addWidget(MakeOptions(binder));
    layout->addLayout(MakeMarkAligned(MakeHairline(Qt::Horizontal)));
    layout->addWidget(MakeAdvanced(binder));
    layout->addStretch(1);
    setWidget(contents);
}

QWidget* Sidebar::MakeFields(Binder& binder, NoteBar& notes) {
    MainForm& form = binder.Form();
    const Captions& captions = form.texts.captions;
    auto* fields = new QWidget;
    auto* layout = new QVBoxLayout(fields);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(MakeTitle(ToQt(captions.instrumentSelection)));
    protocols_ =
        MakeList(binder, form.ConCommTypeList, Words::tr("协议类型"), u"协议类型/数据演示时,显示芯片说明"_s);
    instruments_ =
        MakeList(binder, form.InstrumentList(), ToQt(captions.instrumentName),
                 u"注意:模块及普通电流 电压 转速表等均使用 TQ智能数字/光柱显示控制仪 的参数地址表"_s);
    layout->addWidget(protocols_);
    layout->addWidget(MakeCaptioned(ToQt(captions.instrumentName), instruments_));
    auto* pair = new QHBoxLayout;
    pair->setSpacing(8);
    pair->addWidget(MakeCaptioned(ToQt(captions.instrumentAddress), MakeAddressField(binder, notes)));
    TextSpinBox* count = MakeSpinBox(binder, form.ConDataNub, u"在逐个读取参数时,设置每次读取参数的个数"_s);
    count->SetRange(1, kLargestCount);
    pair->addWidget(MakeCaptioned(ToQt(captions.parameterCount), count));
    layout->addLayout(pair);
    // Q178: nothing reads it.
    layout->addWidget(
        MakeCaptioned(u"数据格式"_s, MakeList(binder, form.ConDataTypeList, u"数据格式"_s,
                                              u"(目前暂时不用)根据不同仪表,选择不同的数据包格式"_s)));
    return fields;
}

QWidget* Sidebar::MakeOptions(Binder& binder) {
    auto* contents = new QWidget;
    contents->setObjectName(u"optionListContents"_s);
    auto* layout = new QVBoxLayout(contents);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    optionList_ = new QScrollArea;
    optionList_->setObjectName(u"optionList"_s);
    optionList_->setFrameShape(QFrame::NoFrame);
    optionList_->setWidgetResizable(true);
    optionList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    optionList_->setFocusPolicy(Qt::NoFocus);
    optionList_->setWidget(contents);
    binder.Watch(binder.Form().ConMeterType, [this] { ShowOptions(); });
    return optionList_;
}

void Sidebar::AddOption() {
    auto* option = new QRadioButton(u"备用"_s);
    SetLook(*option, Look::Quiet);
    option->setFixedHeight(optionHeight_);
    connect(option, &QAbstractButton::clicked, this, [this, index = static_cast<int>(options_.size())] {
        binder_.Event([this, index] { ChooseProtocolOfType(binder_.Form(), index); });
    });
    options_ += option;
    optionList_->widget()->layout()->addWidget(option);
}

// One for each protocol; where there are few, spare ones behind them.
void Sidebar::ShowOptions() {
    const OptionGroup& types = binder_.Form().ConMeterType;
    const auto count = static_cast<int>(types.Captions.size());
    while (options_.size() < std::max(count, kFewestOptions)) AddOption();
    for (int index = 0; index < options_.size(); ++index) {
        QAbstractButton& option = *options_[index];
        const bool isUsed = index < count;
        option.setEnabled(isUsed);
        if (isUsed) option.setText(ToQt(types.Captions[static_cast<std::size_t>(index)]));
        option.setAutoExclusive(types.Chosen() >= 0);
        option.setChecked(types.IsChosen(index));
    }
    ShowChosenOption();
}

QWidget* Sidebar::MakeAdvanced(Binder& binder) {
    MainForm& form = binder.Form();
    const Captions& captions = form.texts.captions;
    auto* advanced = new QWidget;
    auto* layout = new QGridLayout(advanced);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(kGapOfTicks);
    const WindowFace& face = FaceOf(form);
    const int columns = face.layout.tickColumns;
    for (int column = 0; column < columns; ++column) layout->setColumnStretch(column, 1);
    auto* title = new QHBoxLayout;
    title->setContentsMargins(kFocusRoom, 0, 0, 8 - kGapOfTicks);
    title->setSpacing(4);
    title->addWidget(MakeTitle(ToQt(captions.advancedSettings)));
    title->addWidget(MakeCaption(face.behindAdvancedSettings.toString()));
    title->addStretch();
    layout->addLayout(title, 0, 0, 1, columns);
    auto add = [&, place = columns](TickControl& control, TextView caption, const QString& tip) mutable {
        auto* box = new QCheckBox(ToQt(caption));
        box->setFixedHeight(kTickHeight);
        box->setToolTip(tip);
        Bind(binder, control, *box);
        layout->addWidget(box, place / columns, place % columns);
        ++place;
        return box;
    };
    add(form.Check2, captions.anyLength, u"在读多个参数时，随机变化读取数据的长度，用于通讯测试"_s);
    add(form.ConSelChange, captions.stopScrolling, {});
    add(form.ConAutoSave[0], captions.saveRecord, u"保存所有的通讯过程"_s);
    add(form.ConAutoSave[1], captions.saveErrors, {});
    add(form.ConSaveData, captions.capture, u"收集并保存通讯数据,供仿真使用"_s);
    replay_ = add(form.ConMyCommDriver, captions.replay,
                  u"可以在不接入仪表的情况下模拟通讯(暂时只对TQ仪表协议有效)"_s);
    return advanced;
}

void Sidebar::SetOptionHeight(int height) {
    if (height == optionHeight_) return;
    optionHeight_ = height;
    for (QAbstractButton* option : options_) option->setFixedHeight(height);
    FitOptions();
}

QList<QWidget*> Sidebar::Choices() const {
    return {protocols_, instruments_, optionList_->widget(), replay_};
}

void Sidebar::ShowFormerChoice(const QString& protocol, const QString& instrument) {
    protocols_->setPlaceholderText(protocol);
    instruments_->setPlaceholderText(instrument);
    for (QComboBox* list : {protocols_, instruments_}) list->setEnabled(false);
}

void Sidebar::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    FitOptions();
}

// The list takes whole rows of the height that the other pieces leave.
void Sidebar::FitOptions() {
    const int others = widget()->layout()->minimumSize().height() - optionList_->minimumHeight();
    const int rows =
        std::clamp((viewport()->height() - others) / optionHeight_, kFewestOptionsInView, kMostOptionsInView);
    optionList_->setFixedHeight(rows * optionHeight_);
    ShowChosenOption();
}

void Sidebar::ShowChosenOption() {
    const int chosen = binder_.Form().ConMeterType.Chosen();
    if (optionList_ == nullptr || chosen < 0 || chosen >= options_.size()) return;
    optionList_->ensureWidgetVisible(options_[chosen], 0, 0);
}

}  // namespace commtest
