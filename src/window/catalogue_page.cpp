#include "window/catalogue_page.h"

namespace commtest {

namespace {

constexpr int kHandleWidth = 5;

}  // namespace

CataloguePage::CataloguePage(Binder& binder, const Theme& theme, QWidget* parent)
    : QSplitter(Qt::Horizontal, parent),
      list_(new GridView(binder, theme, 1, this)),
      chips_(new ChipPanel(binder, theme, this)) {
    setHandleWidth(kHandleWidth);
    setChildrenCollapsible(false);
    list_->setMinimumWidth(kNarrowestList);
    addWidget(list_);
    addWidget(chips_);
    setStretchFactor(0, 1);
    setStretchFactor(1, 0);
    connect(chips_, &ChipPanel::Opened, this, [this] { chips_->List().setFocus(); });
    connect(chips_, &ChipPanel::Closed, this, [this] { list_->setFocus(); });
}

}  // namespace commtest
