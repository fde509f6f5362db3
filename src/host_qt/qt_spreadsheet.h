#pragma once

#include <QString>

#include "host/spreadsheet.h"

namespace commtest {

// A template as it was last converted; a job that needs it again does without the conversion.
struct ConvertedTemplate;

// Spreadsheets by the programs of the machine: gnumeric's ssconvert, else LibreOffice, whichever is found
// when an order begins.
class QtSpreadsheetEngine : public SpreadsheetEngine {
  public:
    // `searchPath`: folders parted by ":" where the programs are looked for; those of PATH without it.
    explicit QtSpreadsheetEngine(QString searchPath = {}, int longestStep = kLongestSpreadsheetStep);

    int JobsAtATime() const override;
    std::unique_ptr<SpreadsheetJob> Begin(SpreadsheetOrder order, Done done) override;

  private:
    QString searchPath_;
    int longestStep_;
    std::shared_ptr<ConvertedTemplate> template_;
};

}  // namespace commtest
