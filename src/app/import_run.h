#pragma once

#include <memory>
#include <optional>

#include "app/list_problem.h"
#include "catalogue/parameter_list_export.h"
#include "catalogue/parameter_list_import.h"

namespace commtest {

class Clock;

// An import as the user of a window has it, a step at a time: the catalogue is copied, the list comes in, and
// the new catalogue is appended to the copy of the lists. Until the list is in, nothing has changed.
class ImportRun {
  public:
    enum class Stage { Copying, Importing, Exporting, Ended };

    ImportRun(Store& store, ProgramFiles& files, const Clock& clock, const Switches& switches = {})
        : store_(store), files_(files), clock_(clock), switches_(switches) {}

    // False behind the last step.
    bool Step();

    // The former catalogue stands; nothing where the list is in.
    void Cancel();

    Stage Now() const { return stage_; }
    bool IsImported() const { return isImported_; }
    bool WasCancelled() const { return wasCancelled_; }

    // What ended it before the list was in, so that nothing has changed.
    const std::optional<ListProblem>& Problem() const { return problem_; }
    // What ended the export behind it: the import stands.
    const std::optional<ListProblem>& ExportProblem() const { return exportProblem_; }

    int Instruments() const { return instruments_; }
    int Parameters() const { return parameters_; }
    int BadParameters() const { return badParameters_; }
    const Text& Message() const { return message_; }  // once the list is in
    const Text& Backup() const { return backup_; }    // name of the copy
    double Share() const { return share_; }           // of the import, 0 to 1
    int Exported() const { return export_ ? export_->Parameters() : 0; }

    // The file that the export grows.
    std::uint64_t ExportedBytes() const { return exportedBytes_; }
    std::uint64_t ExportSize() const { return formerExportSize_ + exportedBytes_; }

  private:
    void CopyCatalogue();
    void ImportLine();
    void FinishImport();
    void BeginExport();
    void ExportRow();
    void CloseExport();
    void EndWith(const RuntimeError& error);

    Store& store_;
    ProgramFiles& files_;
    const Clock& clock_;
    Switches switches_;
    Stage stage_ = Stage::Copying;
    std::unique_ptr<ParameterListImport> import_;
    std::unique_ptr<GrowingFile> exportFile_;
    std::unique_ptr<ParameterListExport> export_;
    bool isImported_ = false;
    bool wasCancelled_ = false;
    std::optional<ListProblem> problem_;
    std::optional<ListProblem> exportProblem_;
    int instruments_ = 0;
    int parameters_ = 0;
    int badParameters_ = 0;
    double share_ = 0;
    Text message_;
    Text backup_;
    std::uint64_t exportedBytes_ = 0;
    std::uint64_t formerExportSize_ = 0;
};

}  // namespace commtest
