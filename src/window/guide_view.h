#pragma once

#include <QTextBlock>
#include <QTextBrowser>

#include "window/guide_page.h"
#include "window/theme.h"

namespace commtest {

// A page of the guide, to read, to copy from and to follow its links.
class GuideView : public QTextBrowser {
    Q_OBJECT

  public:
    // `home` is the folder of the pages in one language, a resource or a file: ":/docs/guide/zh".
    GuideView(const Theme& theme, QString home, QWidget* parent);

    // A page with its anchor, "reading.md#record"; one that is not there gives way to the first page.
    void Open(const QString& place);
    QString Place() const;  // of what is shown

    // Goes to the next place with these words, on this page or on another one, from the first to the last and
    // from the first again. False if no page has them.
    bool FindNext(const QString& words);

    QVariant loadResource(int type, const QUrl& name) override;

    static constexpr QStringView kFirstPage = u"index.md";
    static constexpr int kWidestPicture = 820;

  protected:
    void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

  private:
    void TakePage(const QUrl& page);
    void NameHeadings();
    void DressBlocks();
    void DressHeading(QTextBlock& block) const;
    void DressWords(QTextBlock& block) const;
    void DressTables();

    const Theme& theme_;
    QString home_;
    GuidePage page_;
    bool isFresh_ = false;  // a page that has been read is not dressed yet
};

}  // namespace commtest
