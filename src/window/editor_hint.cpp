#include "window/editor_hint.h"

#include <QGridLayout>
#include <algorithm>

#include "host_qt/words.h"
#include "window/glyphs.h"
#include "window/look.h"
#include "window/theme.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kGlyphSize = 16;
constexpr int kLineHeight = 20;
constexpr int kGap = 2;
constexpr int kMargin = 4;  // above and below the lines
constexpr int kTallest = 3 * kLineHeight + 2 * kMargin + 2;

QLabel* MakeLine(QWidget* hint) {
    auto* line = new QLabel(hint);
    line->setTextFormat(Qt::PlainText);
    line->setFixedHeight(kLineHeight);
    line->setFont(Theme::CaptionFont());
    return line;
}

void Show(QLabel& line, const QString& text) {
    line.setText(text);
    line.setVisible(!text.isEmpty());
}

}  // namespace

EditorHint::EditorHint(const Theme& theme, QWidget* parent)
    : QFrame(parent),
      theme_(theme),
      limits_(MakeLine(this)),
      sign_(MakeLine(this)),
      objection_(MakeLine(this)),
      keys_(MakeLine(this)) {
    setObjectName(u"editorHint"_s);
    SetLook(*this, Look::Hint);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    objection_->setForegroundRole(kFailureRole);
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(8, kMargin, 8, kMargin);
    layout->setHorizontalSpacing(6);
    layout->setVerticalSpacing(0);
    layout->addWidget(limits_, 0, 1);
    layout->addWidget(sign_, 1, 0);
    layout->addWidget(objection_, 1, 1);
    layout->addWidget(keys_, 2, 1);
    hide();
}

void EditorHint::Say(const QString& limits, const QString& objection, const QString& keys) {
    Show(*limits_, limits);
    Show(*objection_, objection);
    Show(*keys_, keys);
    sign_->setVisible(!objection.isEmpty());
    sign_->setPixmap(GlyphPicture(Glyph::Warning, theme_.Now().warn, kGlyphSize, devicePixelRatioF()));
    setVisible(!Words().isEmpty());
    layout()->activate();
    adjustSize();
}

void EditorHint::PlaceAt(const QRect& editor, const QRect& view) {
    const int below = editor.bottom() + 1 + kGap;
    const int above = editor.top() - kGap - height();
    // With room for all its lines, so that it does not change sides while the user types.
    const bool goesAbove = below + kTallest > view.bottom() + 1 && above >= view.top();
    move(std::max(editor.right() + 1 - width(), 0), goesAbove ? above : below);
    raise();
}

QString EditorHint::Words() const {
    QStringList lines = {limits_->text(), objection_->text(), keys_->text()};
    lines.removeAll(QString());
    return lines.join(Words::tr("；"));
}

}  // namespace commtest
