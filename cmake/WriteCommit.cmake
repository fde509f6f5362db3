# Writes OUTPUT, the source of CommitOfBuild(): the commit of SOURCE, "-dirty" behind it where something was changed
# since; "none" where SOURCE is no checkout of its own, as one unpacked from an archive is not. A file that says so
# already is left alone.
# A script: cmake -DSOURCE=... -DOUTPUT=... -P WriteCommit.cmake

set(commit none)
find_program(git NAMES git)
if(git AND EXISTS "${SOURCE}/.git")
    execute_process(COMMAND ${git} -C "${SOURCE}" describe --always --dirty --abbrev=12 --exclude=*
                    OUTPUT_VARIABLE described ERROR_QUIET OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE status)
    if(status EQUAL 0)
        set(commit ${described})
    endif()
endif()

file(CONFIGURE OUTPUT "${OUTPUT}" CONTENT [[#include "version/build_facts.h"

namespace commtest {

const char* CommitOfBuild() { return "@commit@"; }

}  // namespace commtest
]] @ONLY)
