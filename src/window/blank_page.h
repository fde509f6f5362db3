#pragma once

#include <QLabel>
#include <QPushButton>
#include <functional>

#include "window/theme.h"

namespace commtest {

// What a page says while it has nothing to show.
struct PageWords {
    QString head = {};
    QString text = {};
    QString action = {};  // what can be done about it; empty: nothing
    std::function<void()> act = {};
};

// An icon over these words, in the middle of the page.
class BlankPage : public QWidget {
    Q_OBJECT

  public:
    BlankPage(const Theme& theme, const QString& icon, QWidget* parent);

    void Say(const PageWords& words);

  private:
    void ShowIcon();

    const Theme& theme_;
    QString icon_;
    std::function<void()> act_;
    QLabel* picture_;
    QLabel* head_;
    QLabel* text_;
    QPushButton* action_;
};

}  // namespace commtest
