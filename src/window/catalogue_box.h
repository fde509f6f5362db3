#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "window/theme.h"

namespace commtest {

// The box over a window that has no catalogue: where it was looked for, why it is not open, and the ways out.
// It stands until it is closed; its choices are signals.
class CatalogueBox : public QDialog {
    Q_OBJECT

  public:
    CatalogueBox(const Theme& theme, QWidget* window);

    // `hasFile`: a file stands there that is no catalogue, so that another folder is the first way out.
    void Say(const QString& path, const QString& reason, bool hasFile);

  signals:
    void CreationWanted();
    void FolderWanted();

  private:
    QLayout* MakeWords(const Theme& theme);
    QLayout* MakeWaysOut();
    void MakeDefault(QPushButton& button);

    QLineEdit* path_;
    QLabel* reason_;
    QPushButton* create_;
    QPushButton* choose_;
    QPushButton* goOn_;
};

}  // namespace commtest
