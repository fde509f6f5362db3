#include "window/filter_box.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "host_qt/words.h"
#include "window/bindings.h"
#include "window/glyphs.h"
#include "window/look.h"
#include "window/pieces.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeight = 24;
constexpr int kLensSize = 28;
constexpr int kGlyphSize = 16;
constexpr int kClearWidth = 24;  // of the button that empties it
constexpr int kHitsWidth = 56;

}  // namespace

FilterBox::FilterBox(const Theme& theme, int width, QWidget* parent)
    : QWidget(parent),
      width_(width),
      lens_(new QToolButton(this)),
      field_(new QLineEdit(this)),
      hits_(new QLabel(field_)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lens_);
    layout->addWidget(field_);
    SetLook(*lens_, Look::Flat);
    lens_->setFixedSize(kLensSize, kLensSize);
    lens_->setIconSize({kGlyphSize, kGlyphSize});
    lens_->setFocusPolicy(Qt::StrongFocus);
    lens_->setToolTip(Words::tr("筛选名称、地址、属性"));
    lens_->setAccessibleName(Words::tr("筛选"));
    lens_->hide();
    connect(lens_, &QToolButton::clicked, this, &FilterBox::TakeFocus);

    SetLook(*field_, Look::Compact);
    field_->setFont(Theme::CaptionFont());
    field_->setFixedSize(width_, kHeight);
    field_->setPlaceholderText(Words::tr("筛选名称、地址、属性"));
    field_->setAccessibleName(Words::tr("筛选"));
    field_->setClearButtonEnabled(true);
    sign_ = field_->addAction(QIcon(), QLineEdit::LeadingPosition);
    ShowAsCaption(*hits_);
    hits_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    hits_->setAttribute(Qt::WA_TransparentForMouseEvents);
    hits_->setGeometry(width_ - kClearWidth - kHitsWidth, 2, kHitsWidth, kHeight - 4);
    field_->installEventFilter(this);
    connect(field_, &QLineEdit::textChanged, this, [this](const QString& words) {
        if (!grid_.isNull() && words != grid_->Filter().Words()) grid_->FilterBy(words);
    });
    WhenLeft(*field_, [this] { Fold(); });
    connect(&theme, &Theme::Changed, this, [this, &theme] { ShowIcons(theme); });
    ShowIcons(theme);
    ShowHits();
}

void FilterBox::ShowIcons(const Theme& theme) {
    sign_->setIcon(GlyphIcon(Glyph::Lens, theme.Now().text2));
    lens_->setIcon(GlyphIcon(Glyph::Lens, theme.Now().ink));
}

void FilterBox::Serve(GridView* grid) {
    if (!grid_.isNull()) disconnect(grid_, nullptr, this, nullptr);
    grid_ = grid;
    setVisible(grid != nullptr);
    if (grid == nullptr) return;
    field_->setText(grid->Filter().Words());
    connect(grid, &GridView::FilterChanged, this, &FilterBox::ShowHits);
    ShowHits();
}

void FilterBox::ShowHits() {
    const bool isOn = !grid_.isNull() && grid_->Filter().IsOn();
    const QString hits =
        isOn ? u"%1 / %2"_s.arg(grid_->Filter().CountOfFitting()).arg(grid_->Filter().CountOfRows())
             : QString();
    hits_->setText(hits);
    field_->setTextMargins(0, 0, isOn ? kHitsWidth : 0, 0);
    field_->setAccessibleDescription(hits);
    SetLook(*lens_, isOn ? Look::FlatChosen : Look::Flat);
    if (!isOn && !field_->text().trimmed().isEmpty()) field_->clear();
}

void FilterBox::SetFolded(bool folded) {
    if (folded == isFolded_) return;
    isFolded_ = folded;
    lens_->setVisible(folded);
    field_->setVisible(!folded);
    Fold();
}

void FilterBox::Fold() {
    if (!isFolded_) return;
    field_->hide();
    lens_->show();
}

void FilterBox::TakeFocus() {
    if (isHidden()) return;
    lens_->setVisible(false);
    field_->show();
    field_->setFocus(Qt::ShortcutFocusReason);
    field_->selectAll();
}

void FilterBox::GoIntoTheGrid() {
    if (grid_.isNull()) return;
    grid_->setFocus(Qt::OtherFocusReason);
    grid_->StepIntoRows();
}

bool FilterBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter: GoIntoTheGrid(); return true;
        case Qt::Key_Escape:
            if (field_->text().isEmpty()) GoIntoTheGrid();
            field_->clear();
            return true;
        default: return false;
    }
}

}  // namespace commtest
