#pragma once

#include <QObject>

#include "window/binder.h"
#include "window/catalogue_copy.h"
#include "window/note_bar.h"
#include "window/theme.h"

namespace commtest {

// Brings a former catalogue back, when the user wants it.
class CatalogueRestore : public QObject {
    Q_OBJECT

  public:
    CatalogueRestore(Binder& binder, const Theme& theme, NoteBar& notes, QWidget* window);

    // Asks which copy is to come back, the youngest first; nothing changes before the answer.
    void Ask();

  private:
    void Restore(const CatalogueCopy& copy);

    Binder& binder_;
    const Theme& theme_;
    NoteBar& notes_;
    QWidget* window_;
};

// Behind a change of the catalogue: instruments and the list that is shown are loaded anew.
void LoadCatalogueAnew(MainForm& form);

}  // namespace commtest
