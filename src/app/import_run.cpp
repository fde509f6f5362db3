#include "app/import_run.h"

#include "catalogue/catalogue_backup.h"
#include "host/clock.h"
#include "host/file_names.h"

namespace commtest {

bool ImportRun::Step() {
    try {
        switch (stage_) {
            case Stage::Copying: CopyCatalogue(); break;
            case Stage::Importing: ImportLine(); break;
            case Stage::Exporting: ExportRow(); break;
            case Stage::Ended: break;
        }
    } catch (const RuntimeError& error) {
        EndWith(error);
    }
    return stage_ != Stage::Ended;
}

void ImportRun::CopyCatalogue() {
    backup_ = BackUpCatalogue(store_, files_, clock_.Now());
    stage_ = Stage::Importing;
}

void ImportRun::ImportLine() {
    if (!import_) {
        import_ =
            std::make_unique<ParameterListImport>(store_, files_.OpenBytes(Text(kListFileName)), switches_);
        return;
    }
    const bool goesOn = import_->Step();
    instruments_ = import_->Instruments();
    parameters_ = import_->Parameters();
    if (import_->Size() > 0)
        share_ = static_cast<double>(import_->BytesRead()) / static_cast<double>(import_->Size());
    if (!goesOn) FinishImport();
}

void ImportRun::FinishImport() {
    import_->Commit();
    isImported_ = true;
    message_ = import_->Message();
    badParameters_ = static_cast<int>(import_->BadParameters().size());
    import_.reset();
    stage_ = Stage::Exporting;
}

void ImportRun::BeginExport() {
    const Text name(kListCopyFileName);
    if (files_.Exists(name)) formerExportSize_ = files_.OpenBytes(name)->Size();
    exportFile_ = files_.OpenForAppend(name);
    export_ = std::make_unique<ParameterListExport>(store_, [this](const std::string& bytes) {
        exportFile_->Write(bytes);
        exportedBytes_ += bytes.size();
    });
}

void ImportRun::ExportRow() {
    if (!export_) BeginExport();
    if (export_->Step()) return;
    CloseExport();
    stage_ = Stage::Ended;
}

void ImportRun::CloseExport() {
    export_.reset();
    exportFile_.reset();
}

void ImportRun::EndWith(const RuntimeError& error) {
    if (stage_ == Stage::Exporting) {
        exportProblem_ = ListProblem::Of(error, 0);
    } else {
        problem_ = ListProblem::Of(error, import_ ? import_->Line() : 0);
    }
    import_.reset();
    CloseExport();
    stage_ = Stage::Ended;
}

void ImportRun::Cancel() {
    if (isImported_ || stage_ == Stage::Ended) return;
    import_.reset();
    wasCancelled_ = true;
    stage_ = Stage::Ended;
}

}  // namespace commtest
