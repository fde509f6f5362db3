#include "window/search_line.h"

#include <QHBoxLayout>
#include <QPainter>
#include <utility>

#include "commands/toolbar_commands.h"
#include "host/serial_port.h"
#include "host_qt/words.h"
#include "window/glyphs.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kGlyphSize = 16;
constexpr int kTenths = 10;

QString RateWords(const SearchProgress& progress) {
    const QString rate = ToQt(progress.rate);
    if (!progress.isTicked) return rate + Words::tr(" (未勾选)");
    return u"%1 (%2/%3)"_s.arg(rate).arg(progress.rateNumber).arg(progress.rates);
}

QString TimeWords(std::int64_t milliseconds) {
    const std::int64_t seconds = (milliseconds + 999) / 1000;
    return u"%1:%2"_s.arg(seconds / 60).arg(seconds % 60, 2, 10, QChar(u'0'));
}

std::int64_t PartDone(const SearchProgress& progress, int parts) {
    return progress.all > 0 ? progress.done * parts / progress.all : 0;
}

// Names and values by turns.
QStringList PiecesOf(const SearchProgress& progress, int lastAddress) {
    return {Words::tr("地址"),   u"%1 / %2"_s.arg(progress.address).arg(lastAddress),
            Words::tr("波特率"), RateWords(progress),
            Words::tr("已完成"), u"%1 %"_s.arg(PartDone(progress, 100)),
            Words::tr("剩余约"), TimeWords(progress.millisecondsLeft),
            Words::tr("已发现"), Words::tr("%1 台").arg(progress.found)};
}

bool IsSame(const SearchProgress& one, const SearchProgress& other) {
    return one.address == other.address && one.rate == other.rate && one.done == other.done &&
           one.all == other.all && one.found == other.found && one.isTicked == other.isTicked;
}

}  // namespace

SearchLine::SearchLine(Binder& binder, const Theme& theme, SearchReturn& wayBack, QWidget& start,
                       QWidget* parent)
    : QWidget(parent),
      binder_(binder),
      form_(binder.Form()),
      theme_(theme),
      wayBack_(wayBack),
      start_(start),
      sign_(new QLabel(this)),
      words_(new QLabel(this)),
      stop_(new QPushButton(Words::tr("停止搜索"), this)),
      goBack_(new QPushButton(Words::tr("恢复搜索前的设置"), this)) {
    setAccessibleName(Words::tr("搜索进度"));
    sign_->setFixedSize(kGlyphSize, kGlyphSize);
    words_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(sign_);
    layout->addWidget(words_, 1);
    layout->addWidget(stop_);
    layout->addWidget(goBack_);
    connect(stop_, &QPushButton::clicked, this,
            [this] { binder_.Event([this] { RunToolbarCommand(form_, toolbar::kStartStop); }); });
    connect(goBack_, &QPushButton::clicked, this, [this] { binder_.Event([this] { wayBack_.GoBack(); }); });
    connect(&theme, &Theme::Changed, this, [this] { ShowState(state_); });
    PassFocus();
    binder.AtEachLook([this] { Follow(); });
}

double SearchLine::ShareDone() const {
    if (state_ != SearchState::UnderWay || progress_.all <= 0) return 0;
    return static_cast<double>(progress_.done) / static_cast<double>(progress_.all);
}

void SearchLine::Follow() {
    SearchState state = StateOfSearch(form_);
    if (state == SearchState::BrokenOff && !wayBack_.IsOffered()) state = SearchState::None;
    if (state == SearchState::UnderWay) {
        const SearchProgress progress = ProgressOf(form_);
        const bool isSame = state == state_ && IsSame(progress, progress_);
        progress_ = progress;
        if (isSame) return;
    } else if (state == state_) {
        return;
    }
    ShowState(state);
}

void SearchLine::ShowState(SearchState state) {
    const bool isOther = std::exchange(state_, state) != state;
    if (state == SearchState::UnderWay) ShowProgress();
    if (state == SearchState::BrokenOff) ShowLeftState();
    if (isOther) PassFocus();
    TellListener();
    if (isOther) emit Changed();
    emit Moved();
}

// A button that goes with the focus leaves it to the one that comes; also of a window behind a box.
void SearchLine::PassFocus() {
    const QWidget* focus = window()->focusWidget();
    const bool hadFocus = focus == &start_ || focus == stop_ || focus == goBack_;
    setVisible(state_ != SearchState::None);
    for (QWidget* shown : {static_cast<QWidget*>(sign_), static_cast<QWidget*>(goBack_)})
        shown->setVisible(state_ == SearchState::BrokenOff);
    stop_->setVisible(state_ == SearchState::UnderWay);
    if (!hadFocus) return;
    switch (state_) {
        case SearchState::None: return start_.setFocus();
        case SearchState::UnderWay: return stop_->setFocus();
        case SearchState::BrokenOff: return goBack_->setFocus();
    }
}

void SearchLine::ShowProgress() {
    const QStringList pieces = PiecesOf(progress_, form_.SearchEndAddress);
    QString words = Words::tr("正在搜索");
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        words += u"&nbsp;&nbsp;&nbsp;&nbsp; <span style='color:%1'>%2</span>&nbsp; %3"_s.arg(
            theme_.Now().text2.name(), pieces[i], pieces[i + 1]);
    }
    words_->setTextFormat(Qt::RichText);
    words_->setText(words);
    said_ = Words::tr("正在搜索") + u' ' + pieces.join(u' ');
}

void SearchLine::ShowLeftState() {
    sign_->setPixmap(GlyphPicture(Glyph::Information, theme_.Now().text2, kGlyphSize, devicePixelRatioF()));
    const QString words =
        Words::tr("搜索中止：操作码 %1，间隔 %2 ms，停在地址 %3、%4 波特")
            .arg(QString::number(form_.CommandCode), ToQt(form_.ConDelayTime.Value()),
                 ToQt(form_.ConMeterAddr.Value()), ToQt(Before(form_.MSComm1.Settings(), u',')));
    words_->setTextFormat(Qt::PlainText);
    words_->setText(words);
    said_ = words;
}

// At each tenth, at a hit and when it ends, not at each address.
void SearchLine::TellListener() {
    QString news = QString::number(static_cast<int>(state_));
    if (state_ == SearchState::UnderWay)
        news += u" %1 %2"_s.arg(PartDone(progress_, kTenths)).arg(progress_.found);
    if (std::exchange(told_, news) != news) setAccessibleDescription(said_);
}

// --- The bar ---

ShareBar::ShareBar(const SearchLine& line, const Theme& theme, QWidget* parent)
    : QWidget(parent), line_(line), theme_(theme) {
    setFixedHeight(kHeight);
    connect(&line, &SearchLine::Moved, this, [this] {
        setVisible(line_.Shown() == SearchState::UnderWay);
        update();
    });
    setVisible(line.Shown() == SearchState::UnderWay);
}

void ShareBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme_.Now().line);
    painter.fillRect(0, 0, static_cast<int>(line_.ShareDone() * width()), height(), theme_.Now().accent);
}

}  // namespace commtest
