// A bare window of the toolkit to its first paint: the widgets and cells of the program's window, with
// nothing behind them.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QSplitter>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QStatusBar>
#include <QTabBar>
#include <QTableView>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "first_paint.h"

namespace {

template <typename Widget, typename... Arguments>
void Add(QLayout* layout, int count, Arguments&&... arguments) {
    for (int turn = 0; turn < count; ++turn) layout->addWidget(new Widget(arguments...));
}

QTableView* MakeTable(int rows, int columns) {
    auto* model = new QStandardItemModel(rows, columns);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column)
            model->setItem(row, column, new QStandardItem(QStringLiteral("参数 %1").arg(row)));
    }
    auto* table = new QTableView;
    table->setModel(model);
    return table;
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    auto* toolBar = window.addToolBar("toolbar");
    for (int button = 0; button < 10; ++button) toolBar->addAction(QStringLiteral("导入地址"));

    auto* sidebar = new QWidget;
    auto* fields = new QVBoxLayout(sidebar);
    Add<QLabel>(fields, 8, QStringLiteral("名称"));
    Add<QComboBox>(fields, 3);
    Add<QSpinBox>(fields, 2);
    Add<QRadioButton>(fields, 14, QStringLiteral("备用"));
    Add<QCheckBox>(fields, 6, QStringLiteral("任意长度"));
    auto* scroll = new QScrollArea;
    scroll->setWidget(sidebar);

    auto* strip = new QWidget;
    auto* stripLayout = new QVBoxLayout(strip);
    Add<QLabel>(stripLayout, 10, QStringLiteral("发送数据"));
    Add<QComboBox>(stripLayout, 2);
    Add<QSpinBox>(stripLayout, 3);
    Add<QRadioButton>(stripLayout, 5, QStringLiteral("方式"));
    Add<QCheckBox>(stripLayout, 10, QStringLiteral("通讯"));
    Add<QPushButton>(stripLayout, 5, QStringLiteral("显示切换"));

    auto* page = new QSplitter(Qt::Vertical);
    QTableView* table = MakeTable(42, 11);
    page->addWidget(table);
    page->addWidget(strip);
    page->addWidget(new QPlainTextEdit);
    page->addWidget(new QPlainTextEdit);
    auto* pages = new QStackedWidget;
    pages->addWidget(page);
    auto* ports = new QWidget;
    auto* portLayout = new QVBoxLayout(ports);
    Add<QLabel>(portLayout, 8, QStringLiteral("串口号"));
    Add<QComboBox>(portLayout, 5);
    Add<QPlainTextEdit>(portLayout, 2);
    pages->addWidget(ports);
    pages->addWidget(MakeTable(1, 11));
    pages->addWidget(MakeTable(1, 11));

    auto* columns = new QSplitter;
    columns->addWidget(scroll);
    columns->addWidget(pages);
    window.setCentralWidget(columns);
    window.statusBar()->addWidget(new QLabel("COM1"));
    window.resize(1366, 700);
    const FirstPaint firstPaint(*table->viewport());
    window.show();
    return QApplication::exec();
}
