#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <functional>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// What an empty page says instead of its contents: that there is nothing, and what to do there.
class EmptyState : public QWidget {
    Q_OBJECT

  public:
    // `icon` is a drawing of data/icons.
    EmptyState(const QString& icon, const QString& head, const QString& text, const Theme& theme,
               QWidget* parent);

    void AddAction(const QString& caption, std::function<void()> act);

    // Covers the parent while `isEmpty` holds, which is asked at each look.
    void CoverWhile(Binder& binder, std::function<bool()> isEmpty);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowIcon();

    const Theme& theme_;
    QString icon_;
    QLabel* sign_;
    QHBoxLayout* actions_;
};

}  // namespace commtest
