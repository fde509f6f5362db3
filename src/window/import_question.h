#pragma once

#include <QDateTime>

#include "app/list_look.h"
#include "catalogue/instrument_catalogue.h"
#include "window/fact_box.h"

namespace commtest {

// The question before an import: what the list holds, what stands now, and what will come of the findings.
// Accepted: the import is wanted.
class ImportQuestion : public FactBox {
    Q_OBJECT

  public:
    struct Facts {
        QString file;       // its name
        QDateTime written;  // the file, the last time
        int instruments = 0;
        int parameters = 0;
        int formerInstruments = 0;
        int formerParameters = 0;
    };

    ImportQuestion(const Facts& facts, const ListLook& look, const Theme& theme, QWidget* window);

  signals:
    void SavingWanted();  // of all findings

  private:
    void ShowFacts(const Facts& facts, int findings);
    void ShowFindings(const QString& file, const ListLook& look);
    void AddButtons(bool hasReasonToStay);
};

}  // namespace commtest
