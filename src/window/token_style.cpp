#include "window/token_style.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFrame>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTabBar>
#include <algorithm>

#include "window/style_areas.h"
#include "window/style_buttons.h"
#include "window/style_fields.h"
#include "window/style_menus.h"
#include "window/style_options.h"

namespace commtest {

namespace {

constexpr int kStatusBarHeight = 24;
constexpr int kTabHeight = 32;
constexpr int kTabPadding = 8;
constexpr int kHeadingPadding = 8;
constexpr int kItemPadding = 8;
constexpr int kLowestItem = 24;  // of a list that drops down
constexpr int kTipPadding = 9;   // with the edge

template <typename Option>
const Option& As(const QStyleOption* option) {
    return *static_cast<const Option*>(option);
}

// The tables and lists whose cells have padding.
bool HasPaddedItems(const QWidget* view) { return LookOf(view) == Look::FactTable || IsDropList(view); }

// Some lists that drop down are painted as a menu is.
bool IsComboBox(const QWidget* widget) { return qobject_cast<const QComboBox*>(widget) != nullptr; }

bool IsPointedAt(const QWidget* widget) {
    return qobject_cast<const QAbstractButton*>(widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(widget) != nullptr ||
           qobject_cast<const QTabBar*>(widget) != nullptr;
}

// Frames were measured before they were what they are.
void MeasureAnew(QFrame& frame) { frame.setFrameStyle(frame.frameStyle()); }

}  // namespace

TokenStyle::TokenStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void TokenStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (IsPointedAt(widget)) widget->setAttribute(Qt::WA_Hover);
    if (auto* line = qobject_cast<QLineEdit*>(widget)) {
        const int height = IsPartOfAField(line) ? kLineInFieldHeight : SizeOfLineEdit(line, {}).height();
        line->setMaximumHeight(height);
    } else if (auto* frame = qobject_cast<QFrame*>(widget)) {
        if (FrameOf(frame)) MeasureAnew(*frame);
    } else if (qobject_cast<QStatusBar*>(widget) != nullptr) {
        widget->setFixedHeight(kStatusBarHeight);
    }
}

// --- Painting ---

void TokenStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    switch (element) {
        case PE_Widget: {
            const Look look = LookOf(widget);
            if (look == Look::Band || look == Look::TintBand)
                return PaintBand(*painter, option->rect, look, *tokens_);
            break;
        }
        case PE_PanelLineEdit: return PaintLineEdit(*painter, *option, widget, *tokens_);
        case PE_IndicatorCheckBox:
            return PaintTick(*painter, option->rect, option->state, *tokens_, IsDark());
        case PE_IndicatorRadioButton: return PaintChoice(*painter, option->rect, option->state, *tokens_);
        case PE_PanelMenu:
            painter->fillRect(option->rect, tokens_->surface);
            return PaintEdge(*painter, option->rect, {tokens_->border});
        case PE_FrameMenu: return;
        case PE_PanelTipLabel:
            painter->fillRect(option->rect, tokens_->surface);
            return PaintEdge(*painter, option->rect, {tokens_->line});
        case PE_PanelStatusBar:
            painter->fillRect(option->rect, tokens_->window);
            return painter->fillRect(0, 0, option->rect.width(), 1, tokens_->line);
        case PE_FrameStatusBarItem: return;
        case PE_PanelScrollAreaCorner: return painter->fillRect(option->rect, tokens_->surface);
        case PE_PanelItemViewItem:
            if (HasPaddedItems(widget)) {
                if (Has(option->state, State_Selected))
                    painter->fillRect(option->rect, GroundOfChosenItem(widget));
                return;
            }
            break;
        case PE_FrameFocusRect:
            if (IsDropList(widget)) return;
            break;
        default: break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void TokenStyle::DrawPushButton(const QStyleOptionButton& option, QPainter& painter,
                                const QWidget* button) const {
    const QColor ink = PaintPushButton(painter, option, button, *tokens_);
    QStyleOptionButton label = option;
    label.rect = ContentsOfPushButton(option.rect, LookOf(button));
    label.palette.setColor(QPalette::ButtonText, ink);
    QProxyStyle::drawControl(CE_PushButtonLabel, &label, &painter, button);
}

void TokenStyle::DrawToolButton(const QStyleOptionToolButton& option, QPainter& painter,
                                const QWidget* button) const {
    const Look look = LookOf(button);
    QStyleOptionToolButton label = option;
    label.palette.setColor(QPalette::ButtonText, PaintToolButton(painter, option, look, *tokens_, IsDark()));
    label.rect = ContentsOfToolButton(option, look);
    QProxyStyle::drawControl(CE_ToolButtonLabel, &label, &painter, button);
}

void TokenStyle::DrawOption(const QStyleOptionButton& option, QPainter& painter, const QWidget* button,
                            bool isChoice) const {
    const Look look = LookOf(button);
    PaintFocusOfOption(painter, option, *tokens_);
    const QRect mark = MarkOfOption(option.rect, look);
    if (isChoice) {
        PaintChoice(painter, mark, option.state, *tokens_);
    } else {
        PaintTick(painter, mark, option.state, *tokens_, IsDark());
    }
    QStyleOptionButton label = option;
    label.rect = WordsOfOption(option.rect, look);
    label.palette.setColor(QPalette::WindowText, InkOfOption(option.state, look, isChoice, *tokens_));
    QProxyStyle::drawControl(isChoice ? CE_RadioButtonLabel : CE_CheckBoxLabel, &label, &painter, button);
}

void TokenStyle::DrawChosen(const QStyleOptionComboBox& option, QPainter& painter) const {
    if (option.editable) return;
    const QRect room = PartOfComboBox(option, SC_ComboBoxEditField);
    painter.save();
    painter.setClipRect(room);
    drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, option.palette,
                 Has(option.state, State_Enabled), option.currentText, QPalette::Text);
    painter.restore();
}

void TokenStyle::DrawTabLabel(const QStyleOptionTab& option, QPainter& painter, const QWidget* tabs) const {
    QStyleOptionTab label = option;
    label.rect = option.rect.adjusted(kTabPadding, 0, -kTabPadding, -2);
    label.state.setFlag(State_HasFocus, false);
    const bool isChosen = Has(option.state, State_Selected);
    label.palette.setColor(QPalette::WindowText, isChosen ? tokens_->text : tokens_->text2);
    QProxyStyle::drawControl(CE_TabBarTabLabel, &label, &painter, tabs);
}

void TokenStyle::DrawMenuEntry(const QStyleOptionMenuItem& option, QPainter& painter,
                               const QWidget* menu) const {
    if (IsComboBox(menu)) return DrawEntryOfAList(option, painter, menu);
    const bool showsMnemonics = styleHint(SH_UnderlineShortcut, &option, menu, nullptr) != 0;
    PaintMenuEntry(painter, option, showsMnemonics, *tokens_, IsDark());
    if (option.menuItemType != QStyleOptionMenuItem::SubMenu) return;
    QStyleOptionMenuItem arrow = option;
    arrow.rect = ArrowOfMenuEntry(option.rect);
    drawPrimitive(PE_IndicatorArrowRight, &arrow, &painter, menu);
}

void TokenStyle::DrawEntryOfAList(const QStyleOptionMenuItem& option, QPainter& painter,
                                  const QWidget* list) const {
    painter.fillRect(option.rect, tokens_->surface);
    QProxyStyle::drawControl(CE_MenuItem, &option, &painter, list);
}

void TokenStyle::DrawHeading(const QStyleOptionHeader& option, QPainter& painter,
                             const QWidget* header) const {
    PaintHeading(painter, option.rect, *tokens_);
    QStyleOptionHeader label = option;
    label.rect = option.rect.adjusted(kHeadingPadding, 0, -kHeadingPadding, -1);
    label.palette.setColor(QPalette::ButtonText, tokens_->text2);
    QProxyStyle::drawControl(CE_HeaderLabel, &label, &painter, header);
}

QColor TokenStyle::GroundOfChosenItem(const QWidget* view) const {
    return LookOf(view) == Look::FactTable ? tokens_->row : tokens_->tint;
}

void TokenStyle::DrawItem(const QStyleOptionViewItem& option, QPainter& painter, const QWidget* view) const {
    QStyleOptionViewItem item = option;
    item.palette.setColor(QPalette::Highlight, GroundOfChosenItem(view));
    item.palette.setColor(QPalette::HighlightedText, tokens_->text);
    QProxyStyle::drawControl(CE_ItemViewItem, &item, &painter, view);
}

void TokenStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    switch (element) {
        case CE_PushButton: return DrawPushButton(As<QStyleOptionButton>(option), *painter, widget);
        case CE_CheckBox: return DrawOption(As<QStyleOptionButton>(option), *painter, widget, false);
        case CE_RadioButton: return DrawOption(As<QStyleOptionButton>(option), *painter, widget, true);
        case CE_ComboBoxLabel: return DrawChosen(As<QStyleOptionComboBox>(option), *painter);
        case CE_ShapedFrame:
            if (FrameOf(widget) || LookOf(widget) != Look::Plain)
                return PaintFrame(*painter, *option, widget, *tokens_);
            break;
        case CE_HeaderSection: return PaintHeading(*painter, option->rect, *tokens_);
        case CE_HeaderEmptyArea: return painter->fillRect(option->rect, tokens_->header);
        case CE_Header: return DrawHeading(As<QStyleOptionHeader>(option), *painter, widget);
        case CE_Splitter: return PaintHandle(*painter, *option, *tokens_);
        case CE_TabBarTabShape: return PaintTab(*painter, As<QStyleOptionTab>(option), *tokens_);
        case CE_TabBarTabLabel: return DrawTabLabel(As<QStyleOptionTab>(option), *painter, widget);
        case CE_MenuItem: return DrawMenuEntry(As<QStyleOptionMenuItem>(option), *painter, widget);
        case CE_MenuEmptyArea:
            if (IsDropList(widget)) painter->fillRect(option->rect, tokens_->surface);
            return;
        case CE_ItemViewItem:
            if (HasPaddedItems(widget)) return DrawItem(As<QStyleOptionViewItem>(option), *painter, widget);
            break;
        case CE_ProgressBarGroove: return painter->fillRect(option->rect, tokens_->line);
        case CE_ProgressBarContents:
            return PaintProgress(*painter, As<QStyleOptionProgressBar>(option), *tokens_);
        default: break;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void TokenStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    switch (control) {
        case CC_ComboBox:
            return PaintComboBox(*painter, As<QStyleOptionComboBox>(option), LookOf(widget), *tokens_,
                                 IsDark());
        case CC_SpinBox: return PaintSpinBox(*painter, As<QStyleOptionSpinBox>(option), *tokens_, IsDark());
        case CC_ScrollBar: return PaintScrollBar(*painter, As<QStyleOptionSlider>(option), widget, *tokens_);
        case CC_ToolButton:
            if (IsToolOfOurs(LookOf(widget)))
                return DrawToolButton(As<QStyleOptionToolButton>(option), *painter, widget);
            break;
        default: break;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void TokenStyle::drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                              bool isEnabled, const QString& text, QPalette::ColorRole role) const {
    QProxyStyle::drawItemText(painter, rect, flags | Qt::TextDontClip, palette, isEnabled, text, role);
}

// --- Measures ---

int TokenStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ButtonShiftHorizontal:
        case PM_ButtonShiftVertical:
        case PM_ButtonMargin:
        case PM_ButtonDefaultIndicator:
        case PM_MenuHMargin:
        case PM_ScrollView_ScrollBarSpacing:
        case PM_TabBarTabHSpace:
        case PM_TabBarTabVSpace:
        case PM_TabBarTabShiftHorizontal:
        case PM_TabBarTabShiftVertical: return 0;
        case PM_MenuPanelWidth: return 1;
        case PM_MenuVMargin: return IsComboBox(widget) ? 0 : kMenuMargin;
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight: return kMarkSize;
        case PM_CheckBoxLabelSpacing:
        case PM_RadioButtonLabelSpacing: return GapOfOption(LookOf(widget));
        case PM_ScrollBarExtent: return kScrollBarWidth;
        case PM_ScrollBarSliderMin: return kShortestThumb;
        case PM_ToolTipLabelFrameWidth: return kTipPadding;
        case PM_MenuButtonIndicator:
            if (IsToolOfOurs(LookOf(widget))) return 0;
            break;
        default: break;
    }
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int TokenStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* data) const {
    switch (hint) {
        case SH_ComboBox_PopupFrameStyle: return QFrame::NoFrame;
        default: return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize TokenStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const {
    switch (type) {
        case CT_LineEdit: return SizeOfLineEdit(widget, contents);
        case CT_ComboBox: return SizeOfComboBox(contents);
        case CT_SpinBox: return SizeOfSpinBox(contents);
        case CT_PushButton: return SizeOfPushButton(widget, contents);
        case CT_CheckBox:
        case CT_RadioButton: return SizeOfOption(LookOf(widget), contents);
        case CT_TabBarTab: return {contents.width() + 2 * kTabPadding, kTabHeight};
        case CT_MenuItem:
            if (IsComboBox(widget)) break;
            return SizeOfMenuEntry(As<QStyleOptionMenuItem>(option), contents);
        case CT_ToolButton:
            if (const Look look = LookOf(widget); IsToolOfOurs(look))
                return SizeOfToolButton(As<QStyleOptionToolButton>(option), look, contents);
            break;
        case CT_HeaderSection:
            return QProxyStyle::sizeFromContents(type, option, contents, widget) +
                   QSize(2 * kHeadingPadding, 1);
        case CT_Splitter:
            return contents + (Has(option->state, State_Horizontal) ? QSize(1, 0) : QSize(0, 1));
        case CT_ItemViewItem:
            if (HasPaddedItems(widget)) {
                const QSize item = QProxyStyle::sizeFromContents(type, option, contents, widget);
                const int lowest = LookOf(widget) == Look::FactTable ? 0 : kLowestItem;
                return {item.width() + 2 * kItemPadding, std::max(item.height(), lowest)};
            }
            break;
        default: break;
    }
    return QProxyStyle::sizeFromContents(type, option, contents, widget);
}

QRect TokenStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    const auto onItsSide = [option](const QRect& place) {
        return visualRect(option->direction, option->rect, place);
    };
    switch (control) {
        case CC_ComboBox:
            if (part == SC_ComboBoxListBoxPopup) break;
            return onItsSide(PartOfComboBox(As<QStyleOptionComboBox>(option), part));
        case CC_SpinBox: return onItsSide(PartOfSpinBox(As<QStyleOptionSpinBox>(option), part));
        case CC_ScrollBar: return PartOfScrollBar(As<QStyleOptionSlider>(option), part);
        default: break;
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect TokenStyle::subElementRect(SubElement element, const QStyleOption* option,
                                 const QWidget* widget) const {
    switch (element) {
        case SE_LineEditContents: return ContentsOfLineEdit(*option, widget);
        case SE_PushButtonContents: return ContentsOfPushButton(option->rect, LookOf(widget));
        case SE_CheckBoxIndicator:
        case SE_RadioButtonIndicator: return MarkOfOption(option->rect, LookOf(widget));
        case SE_CheckBoxContents:
        case SE_RadioButtonContents: return WordsOfOption(option->rect, LookOf(widget));
        case SE_CheckBoxFocusRect:
        case SE_CheckBoxClickRect:
        case SE_RadioButtonFocusRect:
        case SE_RadioButtonClickRect: return option->rect;
        case SE_ShapedFrameContents:
        case SE_FrameContents:
            if (const auto frame = FrameOf(widget)) return option->rect.marginsRemoved(*frame);
            break;
        case SE_ItemViewItemText:
        case SE_ItemViewItemFocusRect:
            if (HasPaddedItems(widget)) {
                auto item = As<QStyleOptionViewItem>(option);
                item.rect.adjust(kItemPadding, 0, -kItemPadding, 0);
                return QProxyStyle::subElementRect(element, &item, widget);
            }
            break;
        case SE_ProgressBarGroove:
        case SE_ProgressBarContents: return option->rect;
        default: break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

}  // namespace commtest
