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

# tarvik_library(NAME [TEST_ONLY] SOURCES ... HEADERS ... DEPENDS ... [USES ...])
#
# A library with the alias tarvik::NAME, its headers included from the root of the repository. Without
# SOURCES it is header-only. It is installed and exported unless it is TEST_ONLY.
#
# DEPENDS is the one list of which target may include from which: tools/check_layers.py holds sources
# and docs against it. USES names what its sources alone need of libraries that are not ours.
function(tarvik_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "TEST_ONLY" "" "SOURCES;HEADERS;DEPENDS;USES")
    if(arg_SOURCES)
        add_library(${name} STATIC ${arg_SOURCES})
        target_link_libraries(${name} PRIVATE $<BUILD_INTERFACE:tarvik_warnings> ${arg_USES})
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
        tarvik_layer(${name} "${arg_DEPENDS}" ${arg_SOURCES} ${arg_HEADERS})
    endif()
endfunction()

# tarvik_layer(NAME DEPENDS FILES...)
#
# Adds a line to the list of targets that tools/check_layers.py reads: the target, those that it may
# include from, and its files.
function(tarvik_layer name depends)
    list(TRANSFORM depends REPLACE "^tarvik::" "")
    list(TRANSFORM ARGN PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/")
    string(REPLACE "${PROJECT_SOURCE_DIR}/" "" files "${ARGN}")
    string(REPLACE ";" " " line "${name}|${depends}|${files}")
    set_property(GLOBAL APPEND PROPERTY TARVIK_LAYERS "${line}")
endfunction()

# tarvik_write_layers(FILE): the list as a file; called when all targets are made.
function(tarvik_write_layers file)
    get_property(layers GLOBAL PROPERTY TARVIK_LAYERS)
    list(JOIN layers "\n" text)
    file(WRITE ${file} "${text}\n")
endfunction()

# tarvik_test(NAME SOURCES ... DEPENDS ... [DEFINITIONS ...])
#
# The test program of one target; each of its tests is one for ctest, named behind the program. The
# names hold no values of parameters, which could be paths. All programs share one precompiled
# GoogleTest.
function(tarvik_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;DEPENDS;DEFINITIONS")
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE tarvik_warnings ${arg_DEPENDS} GTest::gtest_main)
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_compile_definitions(${name} PRIVATE ${arg_DEFINITIONS})
    # g++ 12 sees false bounds inside strings that come from a precompiled header.
    target_compile_options(${name} PRIVATE
        $<$<CXX_COMPILER_ID:GNU>:-Wno-array-bounds -Wno-attribute-warning -Wno-restrict
            -Wno-stringop-overflow>)
    target_precompile_headers(${name} REUSE_FROM test_gtest)
    gtest_discover_tests(${name} TEST_PREFIX "${name}." NO_PRETTY_VALUES DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120)
endfunction()
