#include "window/guide_window.h"

#include <QAction>
#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QToolButton>

#include "host_qt/words.h"
#include "window/first_geometry.h"
#include "window/glyphs.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kFirst(920, 640);
constexpr QSize kFrame(16, 48);  // what a frame may take of a small screen
constexpr int kToolsHeight = 36;
constexpr int kButtonHeight = 28;
constexpr int kFindWidth = 180;

const QString kGeometry = u"Guide/Geometry"_s;

}  // namespace

GuideWindow::GuideWindow(const Theme& theme, const QString& home, QSettings& settings, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      view_(new GuideView(theme, home, this)),
      words_(MakeFindField(theme)),
      note_(MakeCaption({})) {
    setWindowFlags(Qt::Window);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(QIcon(u":/icons/app.svg"_s));
    setWindowTitle(Words::tr("使用指南") + u" — CommTest"_s);
    setMinimumSize(kSmallestContents);
    resize(kFirst.boundedTo(screen()->availableSize() - kFrame).expandedTo(kSmallestContents));
    restoreGeometry(settings_.value(kGeometry).toByteArray());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(MakeTools());
    layout->addWidget(MakeHairline(Qt::Horizontal));
    layout->addWidget(view_, 1);
}

QWidget* GuideWindow::MakeTools() {
    auto* tools = new QWidget(this);
    tools->setFixedHeight(kToolsHeight);
    auto* line = new QHBoxLayout(tools);
    line->setContentsMargins(8, 0, 8, 0);
    line->setSpacing(8);
    QWidget* back = MakeButton(Words::tr("返回"), QKeySequence::Back, [this] { view_->backward(); });
    QWidget* forward = MakeButton(Words::tr("前进"), QKeySequence::Forward, [this] { view_->forward(); });
    line->addWidget(back);
    line->addWidget(forward);
    line->addWidget(MakeButton(Words::tr("首页"), QKeySequence(Qt::ALT | Qt::Key_Home),
                               [this] { view_->Open(GuideView::kFirstPage.toString()); }));
    line->addStretch();
    line->addWidget(note_);
    line->addWidget(words_);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(view_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(view_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    return tools;
}

QWidget* GuideWindow::MakeButton(const QString& caption, const QKeySequence& key, std::function<void()> act) {
    auto* button = new QToolButton(this);
    SetLook(*button, Look::Flat);
    button->setText(caption);
    button->setFixedHeight(kButtonHeight);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(key.toString(QKeySequence::NativeText));
    connect(new QShortcut(key, this), &QShortcut::activated, button, &QToolButton::click);
    connect(button, &QToolButton::clicked, this, std::move(act));
    return button;
}

QLineEdit* GuideWindow::MakeFindField(const Theme& theme) {
    auto* field = new QLineEdit(this);
    SetLook(*field, Look::Compact);
    field->setFont(Theme::CaptionFont());
    field->setFixedWidth(kFindWidth);
    field->setPlaceholderText(Words::tr("查找"));
    field->setAccessibleName(Words::tr("查找"));
    field->setClearButtonEnabled(true);
    QAction* sign = field->addAction(QIcon(), QLineEdit::LeadingPosition);
    const auto draw = [sign, &theme] { sign->setIcon(GlyphIcon(Glyph::Lens, theme.Now().text2)); };
    draw();
    connect(&theme, &Theme::Changed, sign, draw);
    connect(field, &QLineEdit::returnPressed, this, &GuideWindow::Find);
    connect(field, &QLineEdit::textEdited, this, [this] { note_->clear(); });
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, field, [field] {
        field->setFocus(Qt::ShortcutFocusReason);
        field->selectAll();
    });
    connect(new QShortcut(QKeySequence::FindNext, this), &QShortcut::activated, this, &GuideWindow::Find);
    return field;
}

void GuideWindow::Find() {
    const bool isFound = words_->text().isEmpty() || view_->FindNext(words_->text());
    note_->setText(isFound ? QString() : Words::tr("没有找到"));
}

void GuideWindow::ShowPlace(const QString& place) {
    view_->Open(place);
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
    view_->setFocus();
}

void GuideWindow::hideEvent(QHideEvent* event) {
    settings_.setValue(kGeometry, saveGeometry());
    QDialog::hideEvent(event);
}

}  // namespace commtest
