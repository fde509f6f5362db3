#pragma once

#include <QFont>
#include <QObject>

#include "window/tokens.h"

namespace commtest {

// The look of the program: Fusion with a palette and one style sheet, both made of the tokens in use.
class Theme : public QObject {
    Q_OBJECT

  public:
    enum class Choice { Auto, Light, Dark };

    // Auto is dark where the desktop's window text is lighter than its window.
    explicit Theme(Choice choice);

    const Tokens& Now() const { return *tokens_; }
    bool IsDark() const { return tokens_ == &kDarkTokens; }

    void Use(Choice choice);

    // Puts the style sheet on. Widgets that are made before are made much faster.
    void Dress();

    static QFont UiFont();       // 13 px
    static QFont CaptionFont();  // 12 px: captions, heads of grids
    static QFont MonoFont();     // 12 px: frames, numbers, addresses, codes

  signals:
    void Changed();

  private:
    void Apply();

    bool desktopIsDark_;
    bool isDressed_ = false;
    const Tokens* tokens_ = &kLightTokens;
};

}  // namespace commtest
