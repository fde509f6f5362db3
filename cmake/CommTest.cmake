# How a folder becomes a library or a test program. Both take every source of the calling folder.

add_library(commtest_warnings INTERFACE)
target_compile_options(commtest_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
    # g++ 12 reports joined strings as overlapping copies when it optimises (a false alarm).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # And as copies beyond their ends (the sanitizers see those that are).
    "$<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-array-bounds;-Wno-stringop-overflow;-Wno-stringop-overread>"
    # clang++ counts the change of a sign as a conversion, g++ does not.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-sign-conversion>)

# Headers that cost more than the sources that include them. They are read once for all sources of a kind.
set(headers_of_tests <gmock/gmock.h> <gtest/gtest.h>)
set(headers_of_toolkit <QDir> <QString>)
set(headers_of_toolkit_tests ${headers_of_toolkit} <QTemporaryDir> ${headers_of_tests})
set(headers_of_window <QApplication> <QComboBox> <QLabel> <QLineEdit> <QMenu> <QPainter> <QSettings> <QWidget>)
set(headers_of_window_tests ${headers_of_window} <QTemporaryDir> <QTest> ${headers_of_tests})

# commtest_precompile(NAME KIND): the first target of a kind precompiles its headers, the others share them.
function(commtest_precompile name kind)
    get_property(owner GLOBAL PROPERTY commtest_owner_of_${kind})
    if(owner)
        target_precompile_headers(${name} REUSE_FROM ${owner})
    else()
        target_precompile_headers(${name} PRIVATE ${headers_of_${kind}})
        # A time in it would keep ccache from knowing it again.
        target_compile_options(${name} PRIVATE $<$<CXX_COMPILER_ID:Clang>:SHELL:-Xclang -fno-pch-timestamp>)
        set_property(GLOBAL PROPERTY commtest_owner_of_${kind} ${name})
    endif()
endfunction()

# commtest_library(NAME [DEPENDS lib ...] [PRECOMPILED KIND]): a static library of the floor plan
# (docs/architecture.md).
function(commtest_library name)
    cmake_parse_arguments(arg "" "PRECOMPILED" "DEPENDS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(${name} STATIC ${sources})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE commtest_warnings)
    if(arg_PRECOMPILED)
        commtest_precompile(${name} ${arg_PRECOMPILED})
    endif()
endfunction()

# commtest_program(NAME SOURCE ... [DEPENDS lib ...]): a program that people start. All stand in bin/, so that one
# finds the other beside itself.
function(commtest_program name)
    cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    target_link_libraries(${name} PRIVATE ${arg_DEPENDS} commtest_warnings)
endfunction()

# commtest_tests(NAME [DEPENDS lib ...] [PRECOMPILED KIND]): one GoogleTest program of the folder's *_test.cpp, which
# takes longer to compile than to run.
function(commtest_tests name)
    cmake_parse_arguments(arg "" "PRECOMPILED" "DEPENDS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *_test.cpp)
    if(NOT sources)
        return()
    endif()
    if(NOT arg_PRECOMPILED)
        set(arg_PRECOMPILED tests)
    endif()
    add_executable(${name} ${sources})
    commtest_precompile(${name} ${arg_PRECOMPILED})
    target_compile_options(${name} PRIVATE -O0)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${arg_DEPENDS} commtest_warnings GTest::gtest GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600)
endfunction()
