#pragma once

#include <QSplitter>

#include "window/chip_panel.h"

namespace commtest {

// 仪表清单: the list of the catalogue, and beside it the panel of the chip records while it is open.
class CataloguePage : public QSplitter {
    Q_OBJECT

  public:
    CataloguePage(Binder& binder, const Theme& theme, QWidget* parent);

    GridView& List() { return *list_; }
    ChipPanel& Chips() { return *chips_; }

    static constexpr int kNarrowestList = 200;

  private:
    GridView* list_;
    ChipPanel* chips_;
};

}  // namespace commtest
