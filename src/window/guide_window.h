#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <functional>

#include "window/guide_view.h"

namespace commtest {

// The guide in a window beside: back, forward, the first page, and words to be found. Escape closes.
class GuideWindow : public QDialog {
    Q_OBJECT

  public:
    // `home` as in GuideView. Place and size are remembered in `settings`, in the section "Guide".
    GuideWindow(const Theme& theme, const QString& home, QSettings& settings, QWidget* parent);

    // Shows the window in front of the others, at that place of the guide.
    void ShowPlace(const QString& place);

    GuideView& View() { return *view_; }

  protected:
    void hideEvent(QHideEvent* event) override;

  private:
    QWidget* MakeTools();
    QWidget* MakeButton(const QString& caption, const QKeySequence& key, std::function<void()> act);
    QLineEdit* MakeFindField(const Theme& theme);
    void Find();

    QSettings& settings_;
    GuideView* view_;
    QLineEdit* words_;
    QLabel* note_;  // that nothing was found
};

}  // namespace commtest
