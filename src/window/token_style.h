#pragma once

#include <QProxyStyle>
#include <QStyleOption>

#include "window/tokens.h"

namespace commtest {

// The look of the program: the toolkit's own style, but for what the window has, which is painted and
// measured by the design. The colours are those of the tokens in use, read when something is painted; no
// height depends on the font. What a widget is beyond its class, its Look says.
class TokenStyle : public QProxyStyle {
    Q_OBJECT

  public:
    TokenStyle();

    // What is shown is painted anew by its owner.
    void Use(const Tokens& tokens) { tokens_ = &tokens; }

    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;

    // What hangs below a line that is lower than its font is not cut off.
    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette,
                      bool isEnabled, const QString& text, QPalette::ColorRole role) const override;

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;

  private:
    bool IsDark() const { return tokens_ == &kDarkTokens; }
    void DrawPushButton(const QStyleOptionButton& option, QPainter& painter, const QWidget* button) const;
    void DrawToolButton(const QStyleOptionToolButton& option, QPainter& painter, const QWidget* button) const;
    void DrawOption(const QStyleOptionButton& option, QPainter& painter, const QWidget* button,
                    bool isChoice) const;
    void DrawChosen(const QStyleOptionComboBox& option, QPainter& painter) const;
    void DrawTabLabel(const QStyleOptionTab& option, QPainter& painter, const QWidget* tabs) const;
    void DrawMenuEntry(const QStyleOptionMenuItem& option, QPainter& painter, const QWidget* menu) const;
    void DrawEntryOfAList(const QStyleOptionMenuItem& option, QPainter& painter, const QWidget* list) const;
    void DrawHeading(const QStyleOptionHeader& option, QPainter& painter, const QWidget* header) const;
    QColor GroundOfChosenItem(const QWidget* view) const;
    void DrawItem(const QStyleOptionViewItem& option, QPainter& painter, const QWidget* view) const;

    const Tokens* tokens_ = &kLightTokens;
};

}  // namespace commtest
