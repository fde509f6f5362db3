#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>

#include "window/grid_view.h"
#include "window/theme.h"

namespace commtest {

// The field over a grid by whose words its rows are shown. Where there is no room for it, a button with a
// lens unfolds it for as long as it has the focus.
class FilterBox : public QWidget {
    Q_OBJECT

  public:
    FilterBox(const Theme& theme, int width, QWidget* parent);

    int FieldWidth() const { return width_; }

    // The grid that is filtered from now on; each keeps its words. Null hides the field.
    void Serve(GridView* grid);

    void SetFolded(bool folded);
    void TakeFocus();

    QLineEdit& Field() { return *field_; }
    QToolButton& Lens() { return *lens_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowIcons(const Theme& theme);
    void ShowHits();
    void Fold();
    void GoIntoTheGrid();

    int width_;
    QToolButton* lens_;
    QLineEdit* field_;
    QAction* sign_;
    QLabel* hits_;
    QPointer<GridView> grid_;
    bool isFolded_ = false;
};

}  // namespace commtest
