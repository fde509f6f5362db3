#include "window/catalogue_box.h"

#include <QHBoxLayout>
#include <algorithm>

#include "host_qt/words.h"
#include "window/glyphs.h"
#include "window/look.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNarrowest = 560;
constexpr int kRoomBesideTheTitle = 120;  // for the frame's own buttons
constexpr int kSignSize = 32;

}  // namespace

CatalogueBox::CatalogueBox(const Theme& theme, QWidget* window)
    : QDialog(window),
      path_(new QLineEdit(this)),
      reason_(new QLabel(this)),
      create_(new QPushButton(Words::tr("在此新建"), this)),
      choose_(new QPushButton(Words::tr("选择文件夹..."), this)),
      goOn_(new QPushButton(Words::tr("不用目录继续"), this)) {
    setWindowTitle(window->windowTitle());
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(
        std::max(kNarrowest, fontMetrics().horizontalAdvance(windowTitle()) + kRoomBesideTheTitle));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(MakeWords(theme));
    layout->addLayout(MakeWaysOut());
    connect(create_, &QPushButton::clicked, this, &CatalogueBox::CreationWanted);
    connect(choose_, &QPushButton::clicked, this, &CatalogueBox::FolderWanted);
    connect(goOn_, &QPushButton::clicked, this, &QDialog::reject);
}

QLayout* CatalogueBox::MakeWords(const Theme& theme) {
    auto* sign = new QLabel(this);
    sign->setPixmap(GlyphPicture(Glyph::Warning, theme.Now().warn, kSignSize, devicePixelRatioF()));
    path_->setReadOnly(true);
    path_->setFont(Theme::MonoFont());
    path_->setAccessibleName(Words::tr("仪表目录"));
    reason_->setObjectName(u"reason"_s);
    reason_->setWordWrap(true);
    reason_->setTextFormat(Qt::PlainText);
    reason_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* words = new QVBoxLayout;
    words->setSpacing(8);
    words->addWidget(new QLabel(Words::tr("没有打开仪表目录"), this));
    words->addWidget(path_);
    words->addWidget(reason_);
    auto* line = new QHBoxLayout;
    line->setSpacing(16);
    line->addWidget(sign, 0, Qt::AlignTop);
    line->addLayout(words, 1);
    return line;
}

QLayout* CatalogueBox::MakeWaysOut() {
    auto* line = new QHBoxLayout;
    line->setSpacing(8);
    line->addWidget(goOn_);
    line->addStretch();
    line->addWidget(choose_);
    line->addWidget(create_);
    return line;
}

void CatalogueBox::Say(const QString& path, const QString& reason, bool hasFile) {
    path_->setText(path);
    path_->setCursorPosition(0);
    reason_->setText(reason);
    setAccessibleDescription(reason);
    resize(minimumWidth(), layout()->totalHeightForWidth(minimumWidth()));
    MakeDefault(hasFile ? *choose_ : *create_);
}

void CatalogueBox::MakeDefault(QPushButton& button) {
    for (QPushButton* each : {create_, choose_}) {
        SetLook(*each, each == &button ? Look::Primary : Look::Plain);
    }
    button.setDefault(true);
    button.setFocus();
}

}  // namespace commtest
