#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QSettings>
#include <functional>

#include "window/guide_window.h"

namespace commtest {

// F1, wherever it is pressed but in a menu or a list that has popped up: opens the guide at the place that
// tells of what has the focus. What a box says or the window has just said comes first, if the guide has an
// entry about it.
class GuideKey : public QObject {
    Q_OBJECT

  public:
    // `said` is what the main window says at the moment, empty if nothing.
    GuideKey(const Theme& theme, QString home, QSettings& settings, QMainWindow& window,
             std::function<QStringList()> said);

    GuideWindow* Window() { return shown_; }  // the last one that was shown; null while there was none

    static constexpr QStringView kMessages = u"messages.md";

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowFor(const QWidget& focus);
    QString PlaceFor(const QWidget& focus) const;
    QString EntryAbout(const QStringList& said) const;
    GuideWindow& WindowOver(QWidget& owner);

    const Theme& theme_;
    QString home_;
    QSettings& settings_;
    QMainWindow& window_;
    std::function<QStringList()> said_;
    QPointer<GuideWindow> beside_;  // the main window
    QPointer<GuideWindow> shown_;
};

}  // namespace commtest
