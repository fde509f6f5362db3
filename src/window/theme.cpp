#include "window/theme.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>
#include <utility>

#include "window/token_style.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

QPalette PaletteOf(const Tokens& tokens) {
    QPalette palette;
    using Role = QPalette::ColorRole;
    const std::initializer_list<std::pair<Role, QColor>> roles = {
        {QPalette::Window, tokens.window},
        {QPalette::WindowText, tokens.text},
        {QPalette::Base, tokens.surface},
        {QPalette::AlternateBase, tokens.zebra},
        {QPalette::Text, tokens.text},
        {QPalette::Button, tokens.window},
        {QPalette::ButtonText, tokens.text},
        {kFailureRole, tokens.warn},
        {QPalette::Highlight, tokens.accent},
        {QPalette::HighlightedText, tokens.onAccent},
        {QPalette::ToolTipBase, tokens.surface},
        {QPalette::ToolTipText, tokens.text},
        {kCaptionRole, tokens.text2},
        {QPalette::Link, tokens.accent},
        {QPalette::Light, tokens.surface},
        {QPalette::Midlight, tokens.hover},
        {QPalette::Mid, tokens.border},
        {QPalette::Dark, tokens.border},
        {kLineRole, tokens.line}};
    for (const auto& [role, colour] : roles) palette.setColor(role, colour);
    for (const Role role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, kCaptionRole})
        palette.setColor(QPalette::Disabled, role, tokens.disabled);
    return palette;
}

// What stands in an empty field is half as strong as what is typed into it.
QPalette WithHints(QPalette palette) {
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QColor hint = palette.color(group, QPalette::Text);
        hint.setAlpha(128);
        palette.setColor(group, QPalette::PlaceholderText, hint);
    }
    return palette;
}

QPalette WithQuietWords(QPalette palette) {
    palette.setColor(QPalette::WindowText, palette.color(kCaptionRole));
    return palette;
}

QFont FontOf(const QStringList& families, int pixels) {
    QFont font;
    font.setFamilies(families);
    font.setPixelSize(pixels);
    return font;
}

const QStringList kUiFamilies = {u"Noto Sans CJK SC"_s, u"Microsoft YaHei UI"_s, u"WenQuanYi Micro Hei"_s,
                                 u"sans-serif"_s};
const QStringList kMonoFamilies = {u"DejaVu Sans Mono"_s, u"WenQuanYi Micro Hei Mono"_s, u"monospace"_s};

}  // namespace

Theme::Theme(Choice choice) : style_(new TokenStyle) {
    const QPalette desktop = QApplication::palette();
    desktopIsDark_ = desktop.windowText().color().lightness() > desktop.window().color().lightness();
    QApplication::setStyle(style_);
    QApplication::setFont(UiFont());
    Use(choice);
}

void Theme::Use(Choice choice) {
    const bool isDark = choice == Choice::Dark || (choice == Choice::Auto && desktopIsDark_);
    tokens_ = isDark ? &kDarkTokens : &kLightTokens;
    if (style_) style_->Use(*tokens_);
    const QPalette palette = PaletteOf(*tokens_);
    QApplication::setPalette(palette);
    QApplication::setPalette(WithHints(palette), "QLineEdit");
    QApplication::setPalette(WithQuietWords(palette), "QStatusBar");
    QToolTip::setPalette(palette);
    emit Changed();
}

QFont Theme::UiFont() { return FontOf(kUiFamilies, 13); }
QFont Theme::CaptionFont() { return FontOf(kUiFamilies, 12); }
QFont Theme::MonoFont() { return FontOf(kMonoFamilies, 12); }

}  // namespace commtest
