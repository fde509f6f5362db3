#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QTest>

#include "window/grid_view.h"
#include "window/view_bench.h"

namespace commtest::testing {

inline const Text kLongInstrument = u"仪表乙";
inline constexpr int kParameters = 40;
inline constexpr int kReadOnlyRow = 5;

inline void AddLongInstrument(BenchSession& session) {
    std::vector<TestParameter> parameters;
    for (int row = 1; row <= kParameters; ++row) {
        const Text attribute = row == kReadOnlyRow ? u"R" : u"RW";
        parameters.push_back({u"参数" + FromUtf8(std::to_string(row)), u"0123", u"2", attribute, u"0"});
    }
    session.Add(kLongInstrument, kNativeProtocol, u"1102", parameters);
}

// An instrument of 40 parameters, of which ten rows are in view.
class GridViewTest : public ::testing::Test {
  protected:
    static constexpr int kRowHeight = 22;
    static constexpr int kRowsInView = 10;
    static constexpr int kHeader = 26;

    ViewBench bench;
    MainForm& form = bench.Form();
    Grid& grid = form.ParameterGrid();
    QWidget window;
    GridView* view = nullptr;

    GridViewTest() {
        window.resize(1200, 600);
        AddLongInstrument(bench.session);
        bench.session.Choose(kNativeProtocol, kLongInstrument);
        view = Add(0);
        QCursor::setPos(QPoint(1190, 590));  // beside the view, before it can find the pointer over it
        window.move(0, 0);
        window.show();
        (void)QTest::qWaitForWindowActive(&window);
        QApplication::processEvents();
        view->setFocus();
    }

    GridView* Add(int index) {
        auto* added = new GridView(bench.binder, bench.theme, index, &window);
        added->SetRowHeight(kRowHeight);
        added->setGeometry(0, 0, 1100, kHeader + kRowsInView * kRowHeight);
        added->show();
        return added;
    }

    void Look() { bench.binder.Look(); }
    std::pair<int, int> Current() const { return {grid.Row, grid.Col}; }
    std::pair<int, int> Marked() const {
        return {view->currentIndex().row() + 1, view->currentIndex().column()};
    }
    int FirstRowInView() const { return view->rowAt(0) + 1; }
    std::string Shown(int row, int col) const {
        return view->model()->index(row - 1, col).data().toString().toStdString();
    }

    QPoint Place(int row, int col) const {
        return view->visualRect(view->model()->index(row - 1, col)).center();
    }
    void Press(int row, int col, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(view->viewport(), button, {}, Place(row, col));
    }
    void Release(int row, int col, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(view->viewport(), button, {}, Place(row, col));
    }
    void Click(int row, int col) {
        Press(row, col);
        Release(row, col);
    }
    void DragTo(int row, int col) {
        const QPointF place(Place(row, col));
        QMouseEvent move(QEvent::MouseMove, place, view->viewport()->mapToGlobal(place), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &move);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(view, key, modifiers); }
    void ShowEditor() {
        form.InputText.SetVisible(true);
        Look();
    }
};

}  // namespace commtest::testing
