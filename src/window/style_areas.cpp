#include "window/style_areas.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QListView>
#include <QPlainTextEdit>
#include <QStyleOptionTab>
#include <QTableView>
#include <QTextEdit>
#include <algorithm>

namespace commtest {

namespace {

constexpr int kRadius = 4;
constexpr int kThumbMargin = 3;
constexpr int kThumbRadius = 3;
constexpr int kPaddingOfDropList = 4;
constexpr int kDotRadius = 4;

bool HasFocus(const QStyleOption& option) { return Has(option.state, QStyle::State_HasFocus); }

bool IsList(const QWidget* frame) {
    return qobject_cast<const QTableView*>(frame) != nullptr ||
           qobject_cast<const QListView*>(frame) != nullptr;
}

bool IsOutlined(Look look) { return look == Look::Hint || look == Look::LineFrame; }

QMargins All(int width) { return {width, width, width, width}; }

// Behind a bar lies what lies behind the rest of its area.
QColor GroundOf(const QWidget* bar) {
    const QWidget* area =
        bar != nullptr && bar->parentWidget() != nullptr ? bar->parentWidget()->parentWidget() : nullptr;
    const auto* scrolled = qobject_cast<const QAbstractScrollArea*>(area);
    const QWidget* ground = scrolled != nullptr ? scrolled->viewport() : bar;
    return ground != nullptr ? ground->palette().color(ground->backgroundRole()) : QColor(Qt::transparent);
}

}  // namespace

bool IsDropList(const QWidget* view) {
    const QWidget* container =
        qobject_cast<const QListView*>(view) != nullptr ? view->parentWidget() : nullptr;
    return container != nullptr && qobject_cast<const QComboBox*>(container->parentWidget()) != nullptr;
}

std::optional<QMargins> FrameOf(const QWidget* frame) {
    if (qobject_cast<const QPlainTextEdit*>(frame) != nullptr) {
        switch (LookOf(frame)) {
            case Look::Boxed: return QMargins(5, 2, 5, 2);
            case Look::Lined: return All(5);
            default: return All(2);
        }
    }
    if (qobject_cast<const QTextEdit*>(frame) != nullptr) return All(0);
    if (frame != nullptr && frame->windowType() == Qt::ToolTip) return QMargins(9, 5, 9, 5);
    if (!IsList(frame)) return IsOutlined(LookOf(frame)) ? std::optional(All(1)) : std::nullopt;
    if (IsDropList(frame)) return QMargins(1, 1 + kPaddingOfDropList, 1, 1 + kPaddingOfDropList);
    return All(LookOf(frame) == Look::FactTable ? 1 : 0);
}

void PaintFrame(QPainter& painter, const QStyleOption& option, const QWidget* frame, const Tokens& tokens) {
    const QRect& box = option.rect;
    const Edge focus{tokens.accent, 2};
    const bool isText = qobject_cast<const QPlainTextEdit*>(frame) != nullptr;
    switch (LookOf(frame)) {
        case Look::Dot: return PaintBox(painter, box, tokens.accent, {Qt::transparent, 0}, kDotRadius);
        case Look::Hint: return PaintBox(painter, box, tokens.surface, {tokens.border}, kRadius);
        case Look::Boxed:
            return PaintBox(painter, box, tokens.surface, HasFocus(option) ? focus : Edge{tokens.border},
                            kRadius);
        case Look::Lined:
            return PaintBox(painter, box, tokens.surface, HasFocus(option) ? focus : Edge{tokens.line},
                            kRadius);
        case Look::Word:
            if (HasFocus(option)) PaintBox(painter, box, Qt::transparent, focus, kRadius);
            return;
        case Look::LineFrame:
            painter.fillRect(box, tokens.surface);
            return PaintEdge(painter, box, {tokens.line});
        case Look::FactTable:
            return PaintEdge(painter, box, {HasFocus(option) ? tokens.accent : tokens.line});
        default: break;
    }
    if (isText) PaintEdge(painter, box, {HasFocus(option) ? tokens.accent : tokens.surface, 2});
    if (!isText && IsDropList(frame)) {
        painter.fillRect(box, tokens.surface);
        PaintEdge(painter, box, {tokens.border});
    }
}

void PaintBand(QPainter& painter, const QRect& band, Look look, const Tokens& tokens) {
    painter.fillRect(band, look == Look::TintBand ? tokens.tint : tokens.window);
    painter.fillRect(band.left(), band.bottom(), band.width(), 1, tokens.line);
}

// --- Scroll bars: a thumb alone ---

QRect PartOfScrollBar(const QStyleOptionSlider& option, QStyle::SubControl part) {
    const QRect& bar = option.rect;
    const bool isFlat = option.orientation == Qt::Horizontal;
    const int length = isFlat ? bar.width() : bar.height();
    const auto range = static_cast<qint64>(option.maximum) - option.minimum;
    qint64 thumb = length;
    if (range > 0)
        thumb =
            std::max<qint64>(qint64{option.pageStep} * length / (range + option.pageStep), kShortestThumb);
    const int size = static_cast<int>(std::min<qint64>(thumb, length));
    const int start = QStyle::sliderPositionFromValue(option.minimum, option.maximum, option.sliderPosition,
                                                      length - size, option.upsideDown);
    const auto stretch = [&](int from, int to) {
        return isFlat ? QRect(bar.left() + from, bar.top(), to - from, bar.height())
                      : QRect(bar.left(), bar.top() + from, bar.width(), to - from);
    };
    switch (part) {
        case QStyle::SC_ScrollBarGroove: return bar;
        case QStyle::SC_ScrollBarSlider: return stretch(start, start + size);
        case QStyle::SC_ScrollBarSubPage: return stretch(0, start);
        case QStyle::SC_ScrollBarAddPage: return stretch(start + size, length);
        default: return {};
    }
}

void PaintScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QWidget* bar,
                    const Tokens& tokens) {
    painter.fillRect(option.rect, GroundOf(bar));
    const bool isOver =
        IsHovered(option.state) && option.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const QRect thumb = PartOfScrollBar(option, QStyle::SC_ScrollBarSlider);
    PaintBox(painter, thumb.marginsRemoved(All(kThumbMargin)), isOver ? tokens.border : tokens.scroll,
             {Qt::transparent, 0}, kThumbRadius);
}

// --- Headings, handles, tabs ---

void PaintHeading(QPainter& painter, const QRect& section, const Tokens& tokens) {
    painter.fillRect(section, tokens.header);
    painter.fillRect(section.left(), section.bottom(), section.width(), 1, tokens.line);
}

void PaintHandle(QPainter& painter, const QStyleOption& option, const Tokens& tokens) {
    const QRect& handle = option.rect;
    painter.fillRect(handle, IsHovered(option.state) ? tokens.tint : tokens.window);
    const bool isBesideOthers = Has(option.state, QStyle::State_Horizontal);
    painter.fillRect(handle.left(), handle.top(), isBesideOthers ? 1 : handle.width(),
                     isBesideOthers ? handle.height() : 1, tokens.line);
}

void PaintProgress(QPainter& painter, const QStyleOptionProgressBar& option, const Tokens& tokens) {
    const QRect& bar = option.rect;
    const double range = std::max(option.maximum - option.minimum, 1);
    const int done = static_cast<int>(bar.width() * ((option.progress - option.minimum) / range));
    painter.fillRect(bar.left(), bar.top(), done, bar.height(), tokens.accent);
}

void PaintTab(QPainter& painter, const QStyleOptionTab& option, const Tokens& tokens) {
    const QRect& tab = option.rect;
    const bool isChosen = Has(option.state, QStyle::State_Selected);
    const QColor ground = IsHovered(option.state) ? tokens.hover : QColor(Qt::transparent);
    if (isChosen && HasFocus(option)) return PaintBox(painter, tab, ground, {tokens.accent, 2}, kRadius);
    painter.fillRect(tab, ground);
    if (isChosen) painter.fillRect(tab.left(), tab.bottom() - 1, tab.width(), 2, tokens.accent);
}

}  // namespace commtest
