#pragma once

#include <QLabel>

#include "window/binder.h"
#include "window/record_view.h"
#include "window/theme.h"

namespace commtest {

// ConCommString(0) under the name and the address of the parameter that it explains, which stand while there
// is a text. Another instrument empties both.
class ConversionPane : public QWidget {
    Q_OBJECT

  public:
    ConversionPane(Binder& binder, const Theme& theme, QWidget* parent);

    // The parameter of that row of the grid is explained.
    void NameRow(int row);

    QString Title() const { return title_->text(); }

  private:
    void ShowTitle();
    void FollowInstrument();

    MainForm& form_;
    std::uint64_t epoch_;
    QLabel* title_;
    QFrame* edge_;  // under the title
};

}  // namespace commtest
