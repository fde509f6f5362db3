#include "cli/catalogue_copy.h"

#include "catalogue/catalogue_backup.h"
#include "cli/problem.h"
#include "host_qt/system_clock.h"
#include "runtime/runtime_error.h"

namespace commtest {

using namespace Qt::StringLiterals;

Text CopyCatalogue(Store& store, ProgramFiles& files, const Text& spared) {
    try {
        return BackUpCatalogue(store, files, SystemClock().Now(), spared);
    } catch (const RuntimeError& error) {
        throw Problem(ExitStatus::NoAccess,
                      QString::fromStdU16String(error.StandardMessage()) +
                          u" 目录不能备份。请结束正在使用目录的其他程序，检查磁盘空间和程序文件夹的权限"_s);
    }
}

}  // namespace commtest
