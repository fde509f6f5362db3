#include "window/search_panel.h"

#include <QCheckBox>
#include <QKeyEvent>

#include "commands/search_panel.h"
#include "window/bindings.h"
#include "window/look.h"
#include "window/pieces.h"
#include "window/port_box.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineHeight = 28;
constexpr int kMargin = 4;
constexpr int kWithSearch = 108;  // the whole panel, while its third line tells of a search
constexpr int kPortWidth = 84;
constexpr int kAddressWidth = 64;
constexpr int kLargestAddress = 255;

QHBoxLayout* AddLine(QVBoxLayout& lines, int height) {
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(8);
    line->addStrut(height);
    lines.addLayout(line);
    return line;
}

}  // namespace

SearchPanel::SearchPanel(Binder& binder, const Theme& theme, QWidget* parent)
    : QWidget(parent),
      binder_(binder),
      wayBack_(binder.Form()),
      hint_(MakeCaption(u"系统提示:完全搜索仪表,耗时将在三分钟左右！"_s)) {
    setAttribute(Qt::WA_StyledBackground);
    SetLook(*this, Look::TintBand);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(12, kMargin, 12, kMargin + 1);
    lines->setSpacing(kMargin);
    firstLine_ = AddLine(*lines, kLineHeight);
    secondLine_ = AddLine(*lines, kLineHeight);
    thirdLine_ = AddLine(*lines, 0);
    lines->addStretch();
    hint_->setFixedHeight(kLineHeight);
    FillFirstLine();
    FillSecondLine();
    search_ = new SearchLine(binder, theme, wayBack_, *start_, this);
    search_->setFixedHeight(kLineHeight);
    thirdLine_->addWidget(search_);
    share_ = new ShareBar(*search_, theme, this);
    connect(search_, &SearchLine::Changed, this, &SearchPanel::FitLines);
    FitLines();
    BindPresence(binder, binder.Form().FindFrame, *this);
}

// The time that is left says more than the hint, where there is no room for both.
void SearchPanel::FitLines() {
    const bool hasSearch = search_->Shown() != SearchState::None;
    (isNarrow_ ? secondLine_ : thirdLine_)->removeWidget(hint_);
    QHBoxLayout& line = isNarrow_ ? *thirdLine_ : *secondLine_;
    if (line.indexOf(hint_) < 0) line.addWidget(hint_);
    hint_->setVisible(!isNarrow_ || !hasSearch);
    const int lines = isNarrow_ ? 3 : 2;
    setFixedHeight(hasSearch ? kWithSearch : lines * (kLineHeight + kMargin) + kMargin + 1);
    SetLook(*start_, search_->Shown() == SearchState::UnderWay ? Look::Plain : Look::Primary);
}

void SearchPanel::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    isNarrow_ = width() < kTwoLineWidth;
    FitLines();
    share_->setGeometry(0, height() - 1 - ShareBar::kHeight, width(), ShareBar::kHeight);
}

void SearchPanel::FillFirstLine() {
    MainForm& form = binder_.Form();
    const Captions& captions = form.texts.captions;
    const auto addField = [this](const QString& caption, QWidget* field, int width) {
        field->setFixedWidth(width);
        field->setAccessibleName(caption);
        firstLine_->addWidget(new QLabel(caption, this));
        firstLine_->addWidget(field);
    };
    const auto addAddress = [&](const QString& caption, TextControl& control) {
        auto* address = new TextSpinBox(this);
        address->SetRange(1, kLargestAddress);
        address->setToolTip(u"最小是 1,最大到 255"_s);
        Bind(binder_, control, *address);
        addField(caption, address, kAddressWidth);
    };
    firstLine_->addWidget(new QLabel(ToQt(captions.search), this));
    firstLine_->addSpacing(8);
    auto* port = new PortBox(binder_, form.ConSettingComm, this);
    addField(ToQt(captions.searchPort), port, kPortWidth);
    firstLine_->addWidget(&port->Refusal());
    addAddress(ToQt(captions.searchStartAddress), form.ConSettingDE[0]);
    addAddress(ToQt(captions.searchEndAddress), form.ConSettingDE[1]);
    firstLine_->addStretch();
    start_ = AddButton(ToQt(captions.searchStart), 1);
    AddButton(ToQt(captions.searchClose), 0);
}

void SearchPanel::FillSecondLine() {
    secondLine_->addWidget(new QLabel(ToQt(binder_.Form().texts.captions.searchBaudRates), this));
    for (std::size_t index = 0; index < kSearchBaudRates.size(); ++index) {
        auto* box = new QCheckBox(QString::fromStdU16String(Text(kSearchBaudRates[index])), this);
        SetLook(*box, Look::Tight);
        Bind(binder_, binder_.Form().ConSettingBT[index], *box);
        secondLine_->addWidget(box);
    }
    secondLine_->addStretch();
}

QPushButton* SearchPanel::AddButton(const QString& caption, int index) {
    auto* button = new QPushButton(caption, this);
    connect(button, &QPushButton::clicked, this, [this, index] { Press(index); });
    firstLine_->addWidget(button);
    return button;
}

void SearchPanel::Press(int index) {
    binder_.Event([this, index] {
        if (index == 1) wayBack_.NoteBefore();
        FindMeter_Click(binder_.Form(), index);
    });
}

void SearchPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        Press(0);
    } else {
        QWidget::keyPressEvent(event);
    }
}

}  // namespace commtest
