#include "window/port_list_view.h"

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPadding = 8;
constexpr int kNameWidth = 48;
constexpr int kHintHeight = 32;

QString DeviceWords(const PortDevice& port) {
    QString words = u"— "_s + QString::fromStdU16String(port.device);
    if (!port.description.empty()) words += u", "_s + QString::fromStdU16String(port.description);
    return words;
}

class PortRowDelegate : public QStyledItemDelegate {
  public:
    PortRowDelegate(const std::vector<PortDevice>& devices, QObject* parent)
        : QStyledItemDelegate(parent), devices_(devices) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const PortRow row = RowOfPort(devices_, index.data().toString());
        const QFontMetrics& metrics = option.fontMetrics;
        const int words = metrics.horizontalAdvance(row.device) + metrics.horizontalAdvance(row.remark);
        return {kNameWidth + words + 4 * kPadding, PortListView::kRowHeight};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QString port = index.data().toString();
        const PortRow row = RowOfPort(devices_, port);
        // The widget's own palette knows the colours of the style sheet alone.
        const QPalette inks = QApplication::palette();
        const QColor quiet = inks.color(QPalette::PlaceholderText);
        const QRect line = option.rect.adjusted(kPadding, 0, -kPadding, 0);
        const auto write = [&](const QRect& place, Qt::Alignment side, const QColor& ink,
                               const QString& text) {
            painter->setPen(ink);
            painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | side, text);
        };
        painter->save();
        painter->setFont(option.font);
        if (option.state & QStyle::State_Selected) painter->fillRect(option.rect, option.palette.highlight());
        write(line, Qt::AlignLeft, inks.color(QPalette::Text), port);
        write(line.adjusted(kNameWidth, 0, 0, 0), Qt::AlignLeft,
              row.isThere ? quiet : inks.color(QPalette::Disabled, QPalette::Text), row.device);
        write(line, Qt::AlignRight, quiet, row.remark);
        painter->restore();
    }

  private:
    const std::vector<PortDevice>& devices_;
};

}  // namespace

PortRow RowOfPort(const std::vector<PortDevice>& devices, const QString& port) {
    for (const PortDevice& device : devices) {
        if (port.compare(u"COM%1"_s.arg(device.number), Qt::CaseInsensitive) != 0) continue;
        const QString remark = !device.isThere  ? Words::tr("不在")
                               : device.isInUse ? Words::tr("其它程序使用")
                                                : QString();
        return {DeviceWords(device), remark, device.isThere};
    }
    return {{}, Words::tr("不在"), false};
}

PortListView::PortListView(QWidget* parent)
    : QListView(parent), hint_(new QLabel(Words::tr("可输入 COM9=/dev/ttyS3 指定设备"), this)) {
    hint_->setObjectName(u"portListHint"_s);
    hint_->setIndent(0);
    setViewportMargins(0, 0, 0, kHintHeight);
    setItemDelegate(new PortRowDelegate(devices_, this));
}

void PortListView::Show(std::vector<PortDevice> devices) {
    devices_ = std::move(devices);
    scheduleDelayedItemsLayout();
    setMinimumWidth(std::max(kNarrowest, sizeHintForColumn(0) + 2 * frameWidth()));
}

void PortListView::resizeEvent(QResizeEvent* event) {
    QListView::resizeEvent(event);
    const QRect rows = viewport()->geometry();
    hint_->setGeometry(rows.left(), rows.bottom() + 1, rows.width(), kHintHeight);
}

}  // namespace commtest
