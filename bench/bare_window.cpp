// A bare window of the toolkit to its first paint, with nothing behind it: as many widgets as the program's
// window has at its first picture, shown and hidden, of the same kinds, with as many cells and different
// texts.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
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
#include <QToolButton>
#include <QVBoxLayout>

#include "first_paint.h"

namespace {

using namespace Qt::StringLiterals;

constexpr int kRows = 46;
constexpr int kColumns = 11;
constexpr int kRowHeight = 22;
constexpr int kWidgetsThatHoldOthers = 9;
constexpr int kHiddenWidgets = 13;

template <typename Widget>
void Add(QLayout* layout, const QStringList& texts) {
    for (const QString& text : texts) layout->addWidget(new Widget(text));
}

template <typename Widget>
void Add(QLayout* layout, int count) {
    for (int turn = 0; turn < count; ++turn) layout->addWidget(new Widget);
}

void AddHairlines(QLayout* layout, int count) {
    for (int turn = 0; turn < count; ++turn) {
        auto* line = new QFrame;
        line->setFrameShape(QFrame::HLine);
        layout->addWidget(line);
    }
}

template <typename Widget>
void AddHidden(QLayout* layout, int count) {
    for (int turn = 0; turn < count; ++turn) {
        auto* widget = new Widget;
        layout->addWidget(widget);
        widget->hide();
    }
}

// With the list that it drops down.
QComboBox* MakeBox(const QString& text) {
    auto* box = new QComboBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->addItem(text);
    return box;
}

QWidget* MakePiece(QLayout* layout) {
    auto* piece = new QWidget;
    piece->setLayout(layout);
    layout->setContentsMargins(0, 0, 0, 0);
    return piece;
}

QWidget* MakeToolBar() {
    auto* layout = new QHBoxLayout;
    for (const QString& text : {u"导入地址"_s, u"仪表搜索"_s, u"开始通讯"_s, u"通讯事件"_s, u"历史数据"_s,
                                u"清空数据"_s, u"导出数据"_s, u"特殊地址"_s, u"系统工具"_s, u"退出系统"_s}) {
        auto* button = new QToolButton;
        button->setText(text);
        layout->addWidget(button);
    }
    AddHairlines(layout, 3);
    auto* bar = MakePiece(layout);
    for (int menu = 0; menu < 3; ++menu) (new QMenu(bar))->addAction(u"导出数据"_s);
    return bar;
}

QWidget* MakeSidebar() {
    auto* fields = new QVBoxLayout;
    Add<QLabel>(fields, {u"仪表选择"_s});
    fields->addWidget(MakeBox(u"TQ仪表协议"_s));
    for (const auto& [caption, text] :
         {std::pair(u"名称"_s, u"HX-D10智能数字显示控制仪"_s), {u"数据格式"_s, QString()}}) {
        auto* piece = new QVBoxLayout;
        piece->addWidget(new QLabel(caption));
        piece->addWidget(MakeBox(text));
        fields->addWidget(MakePiece(piece));
    }
    for (const QString& caption : {u"仪表地址"_s, u"参数个数"_s}) {
        auto* piece = new QVBoxLayout;
        piece->addWidget(new QLabel(caption));
        piece->addWidget(new QSpinBox);
        fields->addWidget(MakePiece(piece));
    }
    auto* options = new QVBoxLayout;
    Add<QRadioButton>(
        options, {u"TQ仪表协议"_s, u"TQ仪表协议-定制累加和"_s, u"TQ仪表协议-定制异或和"_s,
                  u"ModBus-Ascii协议"_s, u"ModBus-Ascii协议-定制01"_s, u"ModBus-Ascii协议-定制02"_s,
                  u"ModBus-RTU协议"_s, u"ModBus-RTU协议-定制01"_s, u"ModBus-RTU协议-KD700记录仪"_s,
                  u"ModBus-RTU协议-TQ记录仪板卡"_s, u"ModBus-RTU协议-标准流量表"_s, u"TQ特殊仪表协议-NOVAX"_s,
                  u"TQ特殊仪表协议-HCT615D"_s, u"ModBus-RTU协议-M46T"_s});
    auto* list = new QScrollArea;
    list->setWidget(MakePiece(options));
    fields->addWidget(list);
    AddHairlines(fields, 2);
    Add<QLabel>(fields, {u"高级设置"_s, u"(通讯时,可不理会这些设置)"_s});
    Add<QCheckBox>(fields, {u"任意长度"_s, u"停止滚屏"_s, u"自动保存记录"_s, u"保存错误记录"_s, u"数据采集"_s,
                            u"数据演示"_s});
    auto* sidebar = new QScrollArea;
    sidebar->setWidget(MakePiece(fields));
    return sidebar;
}

QWidget* MakeTabs() {
    auto* layout = new QHBoxLayout;
    Add<QToolButton>(layout, 1);
    auto* tabs = new QTabBar;
    for (const QString& text : {u"通讯内容"_s, u"串口设置"_s, u"仪表清单"_s, u"演示数据"_s, u"错误记录"_s})
        tabs->addTab(text);
    layout->addWidget(tabs);
    auto* filter = new QLineEdit;
    filter->setPlaceholderText(u"筛选名称、地址、属性"_s);
    filter->setClearButtonEnabled(true);
    layout->addWidget(filter);
    Add<QCheckBox>(layout, {u"跟随"_s});
    AddHairlines(layout, 1);
    Add<QRadioButton>(layout, {u"参数双字节修改"_s, u"参数四字节修改"_s, u"参数批量修改"_s});
    return MakePiece(layout);
}

QTableView* MakeTable() {
    const QStringList names = {u"恢复出厂设置"_s, u"保存参数"_s, u"写入口令"_s,   u"仪表型号"_s,
                               u"软件版本"_s,     u"测量值"_s,   u"峰值"_s,       u"谷值"_s,
                               u"变送输出值"_s,   u"报警状态"_s, u"小数点位置"_s, u"输入类型"_s,
                               u"量程下限"_s,     u"量程上限"_s, u"零点修正"_s};
    auto* model = new QStandardItemModel(kRows, kColumns);
    model->setHorizontalHeaderLabels({u"序号"_s, u"参数名称"_s, u"地址"_s, u"长度"_s, u"属性"_s, u"小数点"_s,
                                      u"RE 读值"_s, u"RR/RD 读值"_s, u"计算值"_s, u"小数点修正值"_s,
                                      u"修改值"_s});
    for (int row = 0; row < kRows; ++row) {
        const QStringList cells = {
            QString::number(row + 1), names[row % names.size()], u"0010"_s, u"2"_s, u"RW"_s, u"0020"_s};
        for (int column = 0; column < cells.size(); ++column)
            model->setItem(row, column, new QStandardItem(cells[column]));
    }
    auto* table = new QTableView;
    table->setModel(model);
    table->verticalHeader()->hide();
    table->verticalHeader()->setDefaultSectionSize(kRowHeight);
    return table;
}

QWidget* MakeStrip() {
    auto* layout = new QHBoxLayout;
    Add<QLabel>(layout, {u"发送数据"_s});
    auto* frames = MakeBox({});
    frames->setEditable(true);
    frames->lineEdit()->setPlaceholderText(u"显示通讯指令"_s);
    layout->addWidget(frames);
    Add<QRadioButton>(layout, {u"ASCii码方式"_s, u"十六进制方式"_s});
    Add<QLabel>(layout, {u"通讯间隔"_s, u"毫秒"_s});
    Add<QSpinBox>(layout, 1);
    AddHairlines(layout, 2);
    Add<QCheckBox>(layout, {u"多台通讯"_s, u"间歇性通讯"_s});
    Add<QPushButton>(layout, {u"显示切换"_s});
    auto* state = new QHBoxLayout;
    Add<QLabel>(state, {u"操作 读取动/静态数据(RR/RD)"_s});
    AddHidden<QLabel>(state, 14);
    AddHidden<QPushButton>(state, 2);
    auto* both = new QVBoxLayout;
    both->addLayout(layout);
    both->addWidget(MakePiece(state));
    AddHairlines(both, 1);
    return MakePiece(both);
}

QPlainTextEdit* MakePane(const QString& title, const QString& words) {
    auto* pane = new QPlainTextEdit;
    auto* layout = new QVBoxLayout(pane->viewport());
    Add<QLabel>(layout, {title, words});
    AddHidden<QFrame>(layout, 2);
    return pane;
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QMainWindow window;
    auto* panes = new QSplitter;
    panes->addWidget(MakePane(u"没有通讯记录"_s, u"选定仪表后按 F5 开始通讯，收发的帧显示在这里"_s));
    panes->addWidget(MakePane(u"没有换算过程"_s, u"单击一个数值，这里说明它怎样得来"_s));
    auto* lower = new QVBoxLayout;
    lower->addWidget(MakeStrip());
    lower->addWidget(panes);
    AddHairlines(lower, 1);
    Add<QLabel>(lower, {u"通讯结论"_s, u"0"_s, u"0"_s});
    QTableView* table = MakeTable();
    auto* halves = new QSplitter(Qt::Vertical);
    halves->addWidget(table);
    halves->addWidget(MakePiece(lower));
    halves->setSizes({370, 260});
    auto* pages = new QStackedWidget;
    pages->addWidget(halves);
    auto* band = new QHBoxLayout;
    AddHidden<QProgressBar>(band, 1);
    AddHidden<QPushButton>(band, 2);
    AddHidden<QToolButton>(band, 1);
    AddHidden<QLineEdit>(band, 1);
    auto* area = new QVBoxLayout;
    area->addWidget(MakeTabs());
    area->addLayout(band);
    area->addWidget(pages, 1);
    auto* columns = new QSplitter;
    columns->addWidget(MakeSidebar());
    columns->addWidget(MakePiece(area));
    auto* centre = new QVBoxLayout;
    centre->addWidget(MakeToolBar());
    centre->addWidget(columns, 1);
    QWidget* whole = MakePiece(centre);
    auto* holders = new QHBoxLayout;
    Add<QWidget>(holders, kWidgetsThatHoldOthers);
    centre->addLayout(holders);
    AddHidden<QWidget>(centre, kHiddenWidgets);
    auto* scroll = new QScrollArea;
    scroll->setWidgetResizable(true);
    scroll->setWidget(whole);
    window.setCentralWidget(scroll);
    for (const QString& text : {u"衡岫仪器公司    本地数据库"_s, u"串口设置: COM1 9600,N,8,1 状态: 关闭"_s})
        window.statusBar()->addWidget(new QLabel(text));
    window.statusBar()->addPermanentWidget(new QLabel(u"2026年11月22日 17:07:56"_s));
    window.resize(1366, 700);
    const FirstPaint firstPaint(*table->viewport());
    window.show();
    return QApplication::exec();
}
