#include "window/theme.h"

#include <QApplication>
#include <QFile>
#include <QPalette>
#include <array>
#include <utility>

#include "window/whole_letters.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

struct NamedToken {
    QLatin1StringView name;
    QColor Tokens::*colour;
};

// Placeholders of the style sheet. A name that begins with another one stands before it.
constexpr std::array<NamedToken, 21> kNames = {{{"@accenthover"_L1, &Tokens::accentHover},
                                                {"@onaccent"_L1, &Tokens::onAccent},
                                                {"@accent"_L1, &Tokens::accent},
                                                {"@warntint"_L1, &Tokens::warnTint},
                                                {"@warn"_L1, &Tokens::warn},
                                                {"@text2"_L1, &Tokens::text2},
                                                {"@text"_L1, &Tokens::text},
                                                {"@window"_L1, &Tokens::window},
                                                {"@surface"_L1, &Tokens::surface},
                                                {"@zebra"_L1, &Tokens::zebra},
                                                {"@header"_L1, &Tokens::header},
                                                {"@hover"_L1, &Tokens::hover},
                                                {"@row"_L1, &Tokens::row},
                                                {"@tint"_L1, &Tokens::tint},
                                                {"@edit"_L1, &Tokens::edit},
                                                {"@flash"_L1, &Tokens::flash},
                                                {"@line"_L1, &Tokens::line},
                                                {"@border"_L1, &Tokens::border},
                                                {"@disabled"_L1, &Tokens::disabled},
                                                {"@ink"_L1, &Tokens::ink},
                                                {"@scroll"_L1, &Tokens::scroll}}};

QString StyleSheetOf(const Tokens& tokens, bool isDark) {
    QFile file(u":/window/style.qss"_s);
    file.open(QIODevice::ReadOnly);
    QString sheet = QString::fromUtf8(file.readAll());
    for (const NamedToken& token : kNames) sheet.replace(token.name, (tokens.*token.colour).name());
    return sheet.replace("@mode"_L1, isDark ? "dark"_L1 : "light"_L1);
}

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
        {QPalette::BrightText, tokens.warn},
        {QPalette::Highlight, tokens.accent},
        {QPalette::HighlightedText, tokens.onAccent},
        {QPalette::ToolTipBase, tokens.surface},
        {QPalette::ToolTipText, tokens.text},
        {QPalette::PlaceholderText, tokens.text2},
        {QPalette::Link, tokens.accent},
        {QPalette::Light, tokens.surface},
        {QPalette::Midlight, tokens.hover},
        {QPalette::Mid, tokens.border},
        {QPalette::Dark, tokens.border},
        {QPalette::Shadow, tokens.line}};
    for (const auto& [role, colour] : roles) palette.setColor(role, colour);
    for (const Role role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, tokens.disabled);
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

Theme::Theme(Choice choice) {
    const QPalette desktop = QApplication::palette();
    desktopIsDark_ = desktop.windowText().color().lightness() > desktop.window().color().lightness();
    QApplication::setStyle(new WholeLetters);
    QApplication::setFont(UiFont());
    Use(choice);
}

void Theme::Use(Choice choice) {
    const bool isDark = choice == Choice::Dark || (choice == Choice::Auto && desktopIsDark_);
    tokens_ = isDark ? &kDarkTokens : &kLightTokens;
    Apply();
    emit Changed();
}

void Theme::Dress() {
    isDressed_ = true;
    Apply();
}

void Theme::Apply() {
    QApplication::setPalette(PaletteOf(*tokens_));
    if (isDressed_) qApp->setStyleSheet(StyleSheetOf(*tokens_, IsDark()));
}

QFont Theme::UiFont() { return FontOf(kUiFamilies, 13); }
QFont Theme::CaptionFont() { return FontOf(kUiFamilies, 12); }
QFont Theme::MonoFont() { return FontOf(kMonoFamilies, 12); }

}  // namespace commtest
