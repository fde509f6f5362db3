#include "window/statistics_label.h"

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <algorithm>

#include "session/records.h"
#include "window/bindings.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineHeight = 25;
constexpr int kGapBehindTotal = 24;

bool TellsFailure(QStringView words) {
    return words.contains(u"校验出错") || words.contains(u"无应答") || words.contains(u"不完整") ||
           words.contains(u"错误率");
}

const QRegularExpression kNumber(u"\\d[\\d,.]*(?: %)?"_s);
const QRegularExpression kDigitAboveZero(u"[1-9]"_s);

const QColor& ColourOf(StatisticsPart::Kind kind, const Tokens& tokens) {
    switch (kind) {
        case StatisticsPart::Kind::Words: return tokens.text2;
        case StatisticsPart::Kind::Number: return tokens.text;
        case StatisticsPart::Kind::Failure: break;
    }
    return tokens.warn;
}

}  // namespace

std::vector<StatisticsPart> PartsOfStatistics(const QString& text) {
    using Kind = StatisticsPart::Kind;
    std::vector<StatisticsPart> parts;
    qsizetype done = 0;
    for (const QRegularExpressionMatch& number : kNumber.globalMatch(text)) {
        const QString words = text.mid(done, number.capturedStart() - done);
        const bool isFailure = TellsFailure(words) && number.captured().contains(kDigitAboveZero);
        parts.push_back({words, Kind::Words});
        parts.push_back({number.captured(), isFailure ? Kind::Failure : Kind::Number});
        done = number.capturedEnd();
    }
    parts.push_back({text.mid(done), Kind::Words});
    std::erase_if(parts, [](const StatisticsPart& part) { return part.text.isEmpty(); });
    return parts;
}

StatisticsLabel::StatisticsLabel(Binder& binder, const Theme& theme, int index, QWidget* parent)
    : QWidget(parent), binder_(binder), theme_(theme) {
    setToolTip(u"双击则重新记数"_s);
    WhenEntered(*this, [this] { ClearCounters(); });
    connect(&theme, &Theme::Changed, this, qOverload<>(&QWidget::update));
    const TextControl& message = binder.Form().ConCommMessage[static_cast<std::size_t>(index)];
    binder.Watch(message, [this, &message] { Show(QString::fromStdU16String(message.Value())); });
}

// The place of a longer text is kept, so that the line is not laid out anew at each exchange.
void StatisticsLabel::Show(const QString& text) {
    setAccessibleName(text);
    parts_ = PartsOfStatistics(text);
    const int width = fontMetrics().horizontalAdvance(text);
    if (width > width_) {
        width_ = width;
        updateGeometry();
    }
    update();
}

QSize StatisticsLabel::sizeHint() const { return {width_, fontMetrics().height()}; }

void StatisticsLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QFontMetrics metrics = fontMetrics();
    const int baseline = (height() - metrics.height()) / 2 + metrics.ascent();
    int x = 0;
    for (const StatisticsPart& part : parts_) {
        const QString text = metrics.elidedText(part.text, Qt::ElideRight, width() - x);
        painter.setPen(ColourOf(part.kind, theme_.Now()));
        painter.drawText(x, baseline, text);
        x += metrics.horizontalAdvance(text);
    }
    if (hasFocus()) painter.fillRect(0, height() - 1, x, 1, theme_.Now().accent);
}

void StatisticsLabel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) ClearCounters();
}

void StatisticsLabel::ClearCounters() {
    binder_.Event([this] { ConCommMessage_DblClick(binder_.Form()); });
}

StatisticsLine::StatisticsLine(Binder& binder, const Theme& theme, QWidget* parent) : QWidget(parent) {
    setObjectName(u"statistics"_s);
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(kLineHeight);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(12, 0, 12, 0);
    line->setSpacing(8);
    line->addWidget(new StatisticsLabel(binder, theme, 1, this));
    line->addSpacing(kGapBehindTotal - line->spacing());
    line->addWidget(MakeCaption(u"通讯结论"_s));
    line->addWidget(new StatisticsLabel(binder, theme, 0, this));
    line->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeHairline(Qt::Horizontal));
    layout->addLayout(line, 1);
}

}  // namespace commtest
