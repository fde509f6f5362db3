#pragma once

#include <QComboBox>
#include <QGridLayout>
#include <QWidget>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// The page 串口设置: the five fields of the port, which take effect when they are left, and the help text.
class PortPage : public QWidget {
    Q_OBJECT

  public:
    PortPage(Binder& binder, const Theme& theme, QWidget* parent);

  private:
    QWidget* MakeForm(const Theme& theme);
    void AddField(QGridLayout& grid, int index, const QString& caption, QWidget* parent);
    QComboBox* MakePortField(QGridLayout& grid, ListControl& control, QWidget* parent);
    QComboBox* MakeField(int index, ListControl& control, QWidget* parent);
    void Apply();

    Binder& binder_;
};

}  // namespace commtest
