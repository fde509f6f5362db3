#include "window/file_to_write.h"

#include <QFileDialog>
#include <QStandardPaths>

namespace commtest {

QString AskForFileToWrite(QWidget* parent, const QString& title, const QString& firstName,
                          const QString& kinds, const QString& suffix) {
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QFileDialog dialog(parent, title, documents, kinds);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    dialog.selectFile(firstName);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().front() : QString();
}

}  // namespace commtest
