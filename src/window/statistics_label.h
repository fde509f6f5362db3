#pragma once

#include <QWidget>
#include <vector>

#include "window/binder.h"
#include "window/theme.h"

namespace commtest {

// ConCommMessage(index): 0 the failures, 1 the total, 2 both. The colours are a rendering; the plain text is
// its accessible name.
class StatisticsLabel : public QWidget {
    Q_OBJECT

  public:
    StatisticsLabel(Binder& binder, const Theme& theme, int index, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

  signals:
    void DoubleClicked();  // or entered

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    struct Part {
        QString text;
        QColor Tokens::*ink;
        double left = 0;
        double width = 0;

        bool operator==(const Part&) const = default;
    };

    void Show(const QString& caption, const StatisticsNumbers& numbers);
    void Divide(const QString& caption, const StatisticsNumbers& numbers);
    void Place(const std::vector<Part>& former);
    void PaintFocus(QPainter& painter, double end) const;

    const Theme& theme_;
    std::vector<Part> parts_;  // of the caption, from the left
    int width_ = 0;            // of the widest text so far
};

// The line under the record: the total, then the conclusion.
class StatisticsLine : public QWidget {
    Q_OBJECT

  public:
    StatisticsLine(Binder& binder, const Theme& theme, QWidget* parent);
};

}  // namespace commtest
