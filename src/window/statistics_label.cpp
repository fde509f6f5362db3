#include "window/statistics_label.h"

#include <QEvent>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "window/bindings.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLineHeight = 25;
constexpr int kGapBehindTotal = 24;
constexpr int kPadding = 6;   // room for the frame of the focus
constexpr int kOverhang = 2;  // of a letter beyond its room

}  // namespace

StatisticsLabel::StatisticsLabel(Binder& binder, const Theme& theme, int index, QWidget* parent)
    : QWidget(parent), theme_(theme) {
    setAttribute(Qt::WA_OpaquePaintEvent);  // what lies behind need not be painted for the sake of a number
    setToolTip(u"双击则重新记数"_s);
    WhenEntered(*this, [this] { emit DoubleClicked(); });
    connect(&theme, &Theme::Changed, this, qOverload<>(&QWidget::update));
    const auto place = static_cast<std::size_t>(index);
    const MainForm& form = binder.Form();
    binder.Watch(form.ConCommMessage[place], [this, &form, place] {
        Show(QString::fromStdU16String(form.ConCommMessage[place].Value()), form.ShownStatistics[place]);
    });
}

// The place of a longer text is kept, so that the line is not laid out anew at each exchange.
void StatisticsLabel::Show(const QString& caption, const StatisticsNumbers& numbers) {
    setAccessibleName(caption);
    setFocusPolicy(caption.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
    const std::vector<Part> former = std::exchange(parts_, {});
    Divide(caption, numbers);
    Place(former);
    const double width = parts_.back().left + parts_.back().width - kPadding;
    if (width > width_) {
        width_ = static_cast<int>(std::ceil(width));
        updateGeometry();
    }
    const auto [changed, same] = std::mismatch(parts_.begin(), parts_.end(), former.begin(), former.end());
    const int left = changed == parts_.end() ? 0 : static_cast<int>(changed->left) - kOverhang;
    update(left, 0, this->width() - left, height());
}

// What was measured before need not be measured again.
void StatisticsLabel::Place(const std::vector<Part>& former) {
    const QFontMetricsF metrics(font());
    double left = kPadding;
    for (std::size_t index = 0; index < parts_.size(); ++index) {
        Part& part = parts_[index];
        const bool isKnown = index < former.size() && former[index].text == part.text;
        part.left = left;
        part.width = isKnown ? former[index].width : metrics.horizontalAdvance(part.text);
        left += part.width;
    }
}

void StatisticsLabel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) Place({});
    QWidget::changeEvent(event);
}

void StatisticsLabel::Divide(const QString& caption, const StatisticsNumbers& numbers) {
    parts_.clear();
    qsizetype done = 0;
    for (const StatisticsNumber& number : numbers) {
        const auto position = static_cast<qsizetype>(number.position);
        const auto length = static_cast<qsizetype>(number.length);
        parts_.push_back({caption.mid(done, position - done), &Tokens::text2});
        parts_.push_back({caption.mid(position, length), number.isFailure ? &Tokens::warn : &Tokens::text});
        done = position + length;
    }
    parts_.push_back({caption.mid(done), &Tokens::text2});
}

QSize StatisticsLabel::sizeHint() const { return {width_ + 2 * kPadding, fontMetrics().height()}; }

void StatisticsLabel::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.fillRect(event->rect(), theme_.Now().window);
    const QFontMetricsF metrics(font());
    const double baseline = std::round((height() - metrics.height()) / 2 + metrics.ascent());
    double end = kPadding;
    for (const Part& part : parts_) {
        const double room = width() - kPadding - part.left;
        const bool fits = part.width <= room;
        const QString text = fits ? part.text : metrics.elidedText(part.text, Qt::ElideRight, room);
        end = part.left + (fits ? part.width : metrics.horizontalAdvance(text));
        if (end + kOverhang >= event->rect().left()) {
            painter.setPen(theme_.Now().*part.ink);
            painter.drawText(QPointF(part.left, baseline), text);
        }
        if (!fits) break;
    }
    if (hasFocus()) PaintFocus(painter, end);
}

void StatisticsLabel::PaintFocus(QPainter& painter, double end) const {
    painter.setPen(QPen(theme_.Now().accent, 2));
    painter.drawRoundedRect(QRectF(1, 1, std::min<double>(end + kPadding, width()) - 2, height() - 2), 4, 4);
}

void StatisticsLabel::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) emit DoubleClicked();
}

StatisticsLine::StatisticsLine(Binder& binder, const Theme& theme, QWidget* parent) : QWidget(parent) {
    setAutoFillBackground(true);
    setFixedHeight(kLineHeight);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(12 - kPadding, 0, 12, 0);
    line->setSpacing(8 - kPadding);
    line->addWidget(new StatisticsLabel(binder, theme, 1, this));
    line->addSpacing(kGapBehindTotal - kPadding - line->spacing());
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
