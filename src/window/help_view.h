#pragma once

#include <QTextEdit>

#include "session/record_pane.h"
#include "window/binder.h"
#include "window/help_paragraphs.h"
#include "window/theme.h"

namespace commtest {

// The help text with its headings and paragraphs, to read and to copy from.
class HelpView : public QTextEdit {
    Q_OBJECT

  public:
    HelpView(Binder& binder, const Theme& theme, const RecordPane& help, QWidget* parent);

  private:
    QString Text() const;
    void ShowText();
    void Add(QTextCursor& cursor, const HelpParagraph& paragraph) const;

    const Theme& theme_;
    const RecordPane& help_;
    QString ofTheFace_;  // in its place, the name of a file
};

}  // namespace commtest
