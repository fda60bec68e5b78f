# How targets are made here: warnings, libraries, test programs.

include(GNUInstallDirs)

# What every target of ours is compiled with. Linked PRIVATE: who uses an installed library chooses
# warnings of their own.
add_library(tarvik_warnings INTERFACE)
target_compile_options(tarvik_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor
    -Woverloaded-virtual -Wcast-align -Wcast-qual -Wformat=2 -Wundef -Wimplicit-fallthrough
    -Wextra-semi -Wredundant-decls
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local -Wduplicated-cond -Wlogical-op -Wuseless-cast
        -Wsuggest-override>)

# tarvik_library(NAME [TEST_ONLY] SOURCES ... HEADERS ... DEPENDS ...)
#
# A library with the alias tarvik::NAME, its headers included from the root of the repository. Without
# SOURCES it is header-only. It is installed and exported unless it is TEST_ONLY.
function(tarvik_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "TEST_ONLY" "" "SOURCES;HEADERS;DEPENDS")
    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:tarvik_warnings>)
        set(scope PUBLIC)
    else()
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    add_library(tarvik::${name} ALIAS ${name})
    target_sources(${name} ${scope}
        FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_HEADERS})
    target_compile_features(${name} ${scope} cxx_std_20)
    target_link_libraries(${name} ${scope} ${arg_DEPENDS})
    if(NOT arg_TEST_ONLY)
        install(TARGETS ${name} EXPORT TarvikTargets FILE_SET HEADERS)
    endif()
endfunction()

# tarvik_test(NAME SOURCES ... DEPENDS ... [DEFINITIONS ...])
#
# A test program; each of its tests is one for ctest. The names hold no values of parameters, which
# could be paths.
function(tarvik_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;DEFINITIONS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE tarvik_warnings ${arg_DEPENDS} GTest::gtest_main)
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    gtest_discover_tests(${name} NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 120)
endfunction()
