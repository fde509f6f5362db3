#include "window/side_pane.h"

#include <QVBoxLayout>

#include "window/conversion_pane.h"
#include "window/hit_list.h"

namespace commtest {

SidePane::SidePane(Binder& binder, QWidget* parent) : QWidget(parent), binder_(binder) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void SidePane::Hold(ConversionPane& conversions) {
    conversions_ = &conversions;
    Add(conversions);
}

void SidePane::Hold(HitList& hits) {
    hits_ = &hits;
    Add(hits);
}

// It looks behind what it holds.
void SidePane::Add(QWidget& held) {
    layout()->addWidget(&held);
    binder_.AtEachLook([this] { Follow(); });
}

void SidePane::Follow() {
    const bool hasHits = hits_ != nullptr && hits_->Stands();
    const bool hasConversions = conversions_ != nullptr && binder_.Form().Explanation().Visible();
    const auto show = [](QWidget* widget, bool shown) {
        if (widget != nullptr && widget->isHidden() == shown) widget->setVisible(shown);
    };
    show(hits_, hasHits);
    show(conversions_, hasConversions && !hasHits);
    show(this, hasHits || hasConversions);
}

}  // namespace commtest
