#include "host/program_files.h"

#include "host/file_names.h"
#include "runtime/runtime_error.h"

namespace commtest {

void ProgramFiles::OpenErrorFile() {
    if (!ErrorFileIsOpen()) errorFile_ = OpenForAppend(Text(kErrorFileName));
}

void ProgramFiles::WriteToErrorFile(const std::string& bytes) {
    if (!ErrorFileIsOpen()) throw RuntimeError(RuntimeError::kBadFile);
    errorFile_->Write(bytes);
}

}  // namespace commtest
