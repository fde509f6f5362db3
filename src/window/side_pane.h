#pragma once

#include <QWidget>

#include "window/binder.h"

namespace commtest {

class ConversionPane;
class HitList;

// What stands beside the record: the conversions, and in their place the hits of a search while they stand.
class SidePane : public QWidget {
    Q_OBJECT

  public:
    SidePane(Binder& binder, QWidget* parent);

    void Hold(ConversionPane& conversions);
    void Hold(HitList& hits);

  private:
    void Add(QWidget& held);
    void Follow();

    Binder& binder_;
    ConversionPane* conversions_ = nullptr;
    HitList* hits_ = nullptr;
};

}  // namespace commtest
