#pragma once

#include <QLabel>

#include "window/theme.h"

namespace commtest {

// A line of words and numbers, as "第 12 / 46 条": numbers in the type of numbers, the words that only frame
// them quiet.
class CountLabel : public QLabel {
    Q_OBJECT

  public:
    // `framing` are the words that are quiet.
    CountLabel(const Theme& theme, const QStringList& framing, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Part {
        QString text;
        QFont font;
        QColor ink;
    };
    QList<Part> Parts() const;

    const Theme& theme_;
    QStringList framing_;
};

}  // namespace commtest
