#pragma once

#include <QProxyStyle>

namespace commtest {

// The toolkit's own style, but what hangs below a line that is lower than its font is not cut off.
class WholeLetters : public QProxyStyle {
    Q_OBJECT

  public:
    WholeLetters();

    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool isEnabled, const QString& text, QPalette::ColorRole role) const override;
};

}  // namespace commtest
