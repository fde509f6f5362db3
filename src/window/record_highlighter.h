#pragma once

#include <QSyntaxHighlighter>

#include "window/theme.h"

namespace commtest {

// Whether words of the record or of the statistics speak of a failure.
bool TellsFailure(QStringView words);

// Colours a record line by line: frames stand out, words are quiet, a verdict that tells a failure warns. The
// text stays as it is. A line depends on none below it, so a block on top colours only itself.
class RecordHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

  public:
    RecordHighlighter(QTextDocument* document, const Theme& theme);

  protected:
    void highlightBlock(const QString& line) override;

  private:
    const Theme& theme_;
};

}  // namespace commtest
