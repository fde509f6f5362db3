#pragma once

#include <QColor>
#include <QPainter>
#include <QStyle>

// What the parts of the style paint with.
namespace commtest {

struct Edge {
    QColor colour = Qt::transparent;
    int width = 1;
};

// A ground within an edge with round corners. What is transparent is not painted.
void PaintBox(QPainter& painter, const QRect& box, const QColor& ground, const Edge& edge, int radius);

// An edge with sharp corners, inside of the box.
void PaintEdge(QPainter& painter, const QRect& box, const Edge& edge);

enum class Sign { Up, Down, Tick, MenuTick };

// In the middle of the place, `size` wide and high.
void PaintSign(QPainter& painter, const QRect& place, Sign sign, int size, bool isDark);

inline bool Has(QStyle::State state, QStyle::StateFlag flag) { return state.testFlag(flag); }
inline bool IsHovered(QStyle::State state) {
    return Has(state, QStyle::State_Enabled) && Has(state, QStyle::State_MouseOver);
}

}  // namespace commtest
