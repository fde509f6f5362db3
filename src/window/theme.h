#pragma once

#include <QFont>
#include <QObject>
#include <QPalette>
#include <QPointer>

#include "window/tokens.h"

namespace commtest {

class TokenStyle;

// Roles of the palette that serve for what their names do not say.
constexpr QPalette::ColorRole kCaptionRole = QPalette::PlaceholderText;
constexpr QPalette::ColorRole kFailureRole = QPalette::BrightText;
constexpr QPalette::ColorRole kLineRole = QPalette::Shadow;

// The look of the program: its style and a palette, both of the tokens in use.
class Theme : public QObject {
    Q_OBJECT

  public:
    enum class Choice { Auto, Light, Dark };

    // Auto is dark where the desktop's window text is lighter than its window.
    explicit Theme(Choice choice);

    const Tokens& Now() const { return *tokens_; }
    bool IsDark() const { return tokens_ == &kDarkTokens; }

    void Use(Choice choice);

    static QFont UiFont();       // 13 px
    static QFont CaptionFont();  // 12 px: captions, heads of grids
    static QFont MonoFont();     // 12 px: frames, numbers, addresses, codes

  signals:
    void Changed();

  private:
    bool desktopIsDark_;
    QPointer<TokenStyle> style_;  // the application's
    const Tokens* tokens_ = &kLightTokens;
};

}  // namespace commtest
