#include "window/guide_view.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTextTable>
#include <algorithm>
#include <utility>

#include "host_qt/words.h"

namespace commtest {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 16;
constexpr int kBehindParagraph = 8;
constexpr int kBehindItem = 4;
constexpr int kAboveHeading = 16;
constexpr int kTitleSize = 18;
constexpr int kHeadingSize = 15;
constexpr int kEntrySize = 13;
constexpr int kCellPadding = 4;
constexpr int kCodeIndent = 12;

// "qrc:/docs/..." and ":/docs/..." are the same resource.
QString FileOf(const QUrl& page) { return page.isLocalFile() ? page.toLocalFile() : u':' + page.path(); }
QUrl UrlOf(const QString& file) {
    return file.startsWith(u':') ? QUrl(u"qrc"_s + file) : QUrl::fromLocalFile(file);
}

QString TextOf(const QString& file) {
    QFile page(file);
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll()) : QString();
}

QImage PictureOf(const QString& file, qreal ratio) {
    QImage picture = QImage(file).convertToFormat(QImage::Format_RGB32);  // one of few colours scales badly
    const int width = std::min(picture.width(), GuideView::kWidestPicture);
    picture = picture.scaledToWidth(static_cast<int>(width * ratio), Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

bool IsCode(const QTextBlock& block) { return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence); }

bool AreOneCode(const QTextBlock& block, const QTextBlock& next) {
    const auto languageOf = [](const QTextBlock& each) {
        return each.blockFormat().stringProperty(QTextFormat::BlockCodeLanguage);
    };
    return IsCode(block) && IsCode(next) && languageOf(block) == languageOf(next);
}

int SizeOfHeading(int level) {
    if (level == 1) return kTitleSize;
    return level == 2 ? kHeadingSize : kEntrySize;
}

QTextCursor CursorOver(QTextBlock& block) {
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    return cursor;
}

}  // namespace

GuideView::GuideView(const Theme& theme, QString home, QWidget* parent)
    : QTextBrowser(parent), theme_(theme), home_(std::move(home)) {
    setFrameShape(QFrame::NoFrame);
    setFont(Theme::UiFont());
    setTextInteractionFlags(Qt::TextBrowserInteraction | Qt::TextSelectableByKeyboard);
    document()->setDocumentMargin(kMargin);
    setAccessibleName(Words::tr("使用指南"));
    connect(this, &QTextBrowser::sourceChanged, this, &GuideView::TakePage);
    connect(&theme, &Theme::Changed, this, &QTextBrowser::reload);
}

void GuideView::Open(const QString& place) {
    const QString name = place.section(u'#', 0, 0);
    const bool isThere = !name.isEmpty() && QFile::exists(home_ + u'/' + name);
    QUrl page = UrlOf(home_ + u'/' + (isThere ? name : kFirstPage.toString()));
    if (isThere) page.setFragment(place.section(u'#', 1));
    setSource(page);
}

QString GuideView::Place() const {
    const QString anchor = source().fragment();
    return source().fileName() + (anchor.isEmpty() ? QString() : u'#' + anchor);
}

bool GuideView::FindNext(const QString& words) {
    if (words.isEmpty() || find(words)) return !words.isEmpty();
    const QStringList pages = QDir(home_).entryList({u"*.md"_s}, QDir::Files, QDir::Name);
    const qsizetype here = pages.indexOf(source().fileName());
    for (qsizetype step = 1; step <= pages.size(); ++step) {
        const QString file = home_ + u'/' + pages[(here + step) % pages.size()];
        if (!TextOf(file).contains(words, Qt::CaseInsensitive)) continue;
        setSource(UrlOf(file));
        moveCursor(QTextCursor::Start);
        if (find(words)) return true;
    }
    return false;
}

// A link that leads to no page of the program stays where it is.
void GuideView::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
    if (QFile::exists(FileOf(source().resolved(name)))) QTextBrowser::doSetSource(name, type);
}

QVariant GuideView::loadResource(int type, const QUrl& name) {
    const QString file = FileOf(source().resolved(name));
    if (type == QTextDocument::ImageResource) return PictureOf(file, devicePixelRatioF());
    page_ = GuidePageOf(TextOf(file));
    isFresh_ = true;
    return page_.markdown;
}

void GuideView::TakePage(const QUrl& page) {
    if (std::exchange(isFresh_, false)) {
        QTextCursor all(document());
        all.beginEditBlock();  // laid out once, behind all of it
        NameHeadings();
        DressBlocks();
        DressTables();
        all.endEditBlock();
        moveCursor(QTextCursor::Start);
    }
    if (page.hasFragment()) scrollToAnchor(page.fragment());
}

void GuideView::NameHeadings() {
    qsizetype heading = 0;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0) continue;
        QTextCharFormat name;
        name.setAnchor(true);
        name.setAnchorNames(page_.anchors.value(heading++));
        if (!name.anchorNames().isEmpty()) CursorOver(block).mergeCharFormat(name);
    }
}

void GuideView::DressBlocks() {
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format;
        const bool isCode = IsCode(block);
        const bool isInTable = QTextCursor(block).currentTable() != nullptr;
        const bool isHeading = block.blockFormat().headingLevel() > 0;
        if (isCode) format.setBackground(theme_.Now().header);
        if (isCode) format.setLeftMargin(kCodeIndent);
        format.setTopMargin(isHeading && block.previous().isValid() ? kAboveHeading : 0);
        const bool endsTogether = isInTable || AreOneCode(block, block.next());
        const int behind = block.textList() != nullptr ? kBehindItem : kBehindParagraph;
        format.setBottomMargin(endsTogether ? 0 : behind);
        QTextCursor(block).mergeBlockFormat(format);
        isHeading ? DressHeading(block) : DressWords(block);
    }
}

void GuideView::DressHeading(QTextBlock& block) const {
    QTextCharFormat letters = block.begin().fragment().charFormat();
    letters.clearProperty(QTextFormat::FontSizeAdjustment);
    letters.setProperty(QTextFormat::FontPixelSize, SizeOfHeading(block.blockFormat().headingLevel()));
    letters.setForeground(theme_.Now().text);
    CursorOver(block).setCharFormat(letters);
}

void GuideView::DressWords(QTextBlock& block) const {
    const bool isCode = IsCode(block);
    QList<std::pair<int, int>> codes;
    QList<std::pair<int, int>> links;
    for (auto each = block.begin(); !each.atEnd(); ++each) {
        const QTextFragment part = each.fragment();
        const QTextCharFormat letters = part.charFormat();
        if (isCode || letters.fontFixedPitch()) codes += {part.position(), part.position() + part.length()};
        if (!letters.anchorHref().isEmpty()) links += {part.position(), part.position() + part.length()};
    }
    const auto dress = [&block](const QList<std::pair<int, int>>& places, const QTextCharFormat& format) {
        for (const auto& [begin, end] : places) {
            QTextCursor cursor(block);
            cursor.setPosition(begin);
            cursor.setPosition(end, QTextCursor::KeepAnchor);
            cursor.mergeCharFormat(format);
        }
    };
    QTextCharFormat code;
    code.setFont(Theme::MonoFont());
    dress(codes, code);
    QTextCharFormat link;
    link.setForeground(theme_.Now().accent);
    dress(links, link);
}

void GuideView::DressTables() {
    for (QTextFrame* frame : document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (table == nullptr) continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(theme_.Now().line);
        format.setCellPadding(kCellPadding);
        format.setBottomMargin(kBehindParagraph);
        table->setFormat(format);
        for (int column = 0; column < table->columns(); ++column) {
            QTextTableCell cell = table->cellAt(0, column);
            QTextCharFormat head = cell.format();
            head.setBackground(theme_.Now().header);
            cell.setFormat(head);
        }
    }
}

}  // namespace commtest
