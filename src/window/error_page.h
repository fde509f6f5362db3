#pragma once

#include <QBoxLayout>
#include <QWidget>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// The page 错误记录: the statistics, and the error file to read, to load again and to empty.
class ErrorPage : public QWidget {
    Q_OBJECT

  public:
    ErrorPage(Binder& binder, const Theme& theme, QWidget* parent);

  private:
    QWidget* MakeStrip(const Theme& theme);
    void AddButton(QHBoxLayout& line, int index, const QString& caption, const QString& tip);

    Binder& binder_;
};

}  // namespace commtest
