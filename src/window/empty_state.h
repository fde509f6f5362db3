#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QWidget>
#include <functional>
#include <vector>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// What an empty page says: that there is nothing, why, and what can be done about it.
struct EmptyWords {
    struct Action {
        QString caption;
        std::function<void()> act;
    };

    QString head = {};
    QString text = {};
    std::vector<Action> actions = {};
};

// What stands in the middle of an empty page instead of its contents.
class EmptyState : public QWidget {
    Q_OBJECT

  public:
    // `icon` is a drawing of data/icons; empty: none.
    EmptyState(const QString& icon, const EmptyWords& words, const Theme& theme, QWidget* parent);

    void Say(const EmptyWords& words);

    // Covers the parent while `isEmpty` holds, which is asked at each look.
    void CoverWhile(Binder& binder, std::function<bool()> isEmpty);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ShowIcon();
    void ShowActions(const std::vector<EmptyWords::Action>& actions);

    const Theme& theme_;
    QString icon_;
    QLabel* sign_;
    QLabel* head_;
    QLabel* text_;
    QHBoxLayout* actions_;  // between two stretches
};

}  // namespace commtest
