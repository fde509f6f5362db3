# How a folder becomes a library or a test program. Both take every source of the calling folder.

add_library(commtest_warnings INTERFACE)
target_compile_options(commtest_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror
    # g++ 12 reports joined strings as overlapping copies when it optimises (a false alarm).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

# commtest_library(NAME [DEPENDS lib ...]): a static library of the floor plan (docs/architecture.md).
function(commtest_library name)
    cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h)
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(${name} STATIC ${sources})
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_include_directories(${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE commtest_warnings)
endfunction()

# commtest_program(NAME SOURCE ... [DEPENDS lib ...]): a program that people start. All stand in bin/, so that one
# finds the other beside itself.
function(commtest_program name)
    cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    target_compile_definitions(${name} PRIVATE COMMTEST_VERSION="${PROJECT_VERSION}")
    target_link_libraries(${name} PRIVATE ${arg_DEPENDS} commtest_warnings)
endfunction()

# commtest_tests(NAME [DEPENDS lib ...]): one GoogleTest program of the folder's *_test.cpp.
function(commtest_tests name)
    cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *_test.cpp)
    if(NOT sources)
        return()
    endif()
    add_executable(${name} ${sources})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE ${arg_DEPENDS} commtest_warnings GTest::gtest GTest::gmock GTest::gtest_main)
    gtest_discover_tests(${name} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
