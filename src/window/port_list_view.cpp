#include "window/port_list_view.h"

#include <QLabel>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "host_qt/words.h"
#include "window/pieces.h"
#include "window/theme.h"

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
        const QPalette& inks = option.palette;
        const QColor quiet = inks.color(kCaptionRole);
        const QRect line = option.rect.adjusted(kPadding, 0, -kPadding, 0);
        const auto write = [&](const QRect& place, Qt::Alignment side, const QColor& ink,
                               const QString& text) {
            painter->setPen(ink);
            painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine | side, text);
        };
        painter->save();
        painter->setFont(option.font);
        option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, option.widget);
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
    : QListView(parent),
      edge_(MakeHairline(Qt::Horizontal)),
      hint_(new QLabel(Words::tr("可输入 COM9=/dev/ttyS3 指定设备"), this)) {
    edge_->setParent(this);
    hint_->setObjectName(u"portListHint"_s);
    hint_->setIndent(0);
    hint_->setContentsMargins(kPadding, 0, kPadding, 0);
    ShowAsCaption(*hint_);
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
    edge_->setGeometry(rows.left(), rows.bottom() + 1, rows.width(), 1);
    hint_->setGeometry(rows.left(), rows.bottom() + 2, rows.width(), kHintHeight - 1);
}

}  // namespace commtest
