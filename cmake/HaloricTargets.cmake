# How every target of the project is compiled, and the two functions that make one.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_OBJCXX_STANDARD 20)
set(CMAKE_OBJCXX_STANDARD_REQUIRED ON)
set(CMAKE_OBJCXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

find_program(HALORIC_CCACHE ccache)
if(HALORIC_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    # Precompiled headers and ccache agree only when timestamps and defines are left out of the hash. A second clone
    # profits from the first: paths are taken from the clone's own folder.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
        "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=true
        "${HALORIC_CCACHE}")
    set(CMAKE_OBJCXX_COMPILER_LAUNCHER ${CMAKE_CXX_COMPILER_LAUNCHER})
endif()

add_library(haloric_options INTERFACE)
target_include_directories(haloric_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(haloric_options INTERFACE -Wall -Wextra -Wconversion -Werror)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # Without it each precompiled header holds the time, and ccache never finds what was compiled with it.
    target_compile_options(haloric_options INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
endif()
if(CMAKE_SYSTEM_NAME STREQUAL "Darwin" OR NOT CMAKE_SYSTEM_PROCESSOR STREQUAL "x86_64")
    # A product and a sum are rounded separately, so that geometry and pictures are the same everywhere. The compiler's
    # default for x86-64 has no instruction that could do both at once.
    target_compile_options(haloric_options INTERFACE -ffp-contract=off)
endif()
if(HALORIC_SANITIZERS)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The instrumentation hides from g++ 12 what std::optional and std::variant have initialised.
        target_compile_options(haloric_options INTERFACE -Wno-maybe-uninitialized)
    endif()
    target_compile_options(haloric_options INTERFACE "-fsanitize=${HALORIC_SANITIZERS}" -fno-omit-frame-pointer)
    target_compile_options(haloric_options INTERFACE -fno-sanitize-recover=all)
    target_link_options(haloric_options INTERFACE "-fsanitize=${HALORIC_SANITIZERS}")
endif()

# Most of a compilation is the reading of headers, so the sources of a target are compiled in batches. The batches are
# small, because one changed source compiles its whole batch again.
option(HALORIC_UNITY "Compile several sources of a target at once" ON)
set(HALORIC_UNITY_BATCH 8 CACHE STRING "How many sources are compiled at once")
mark_as_advanced(HALORIC_UNITY_BATCH)

function(haloric_compile_in_batches name)
    set_target_properties(${name} PROPERTIES
        UNITY_BUILD ${HALORIC_UNITY} UNITY_BUILD_BATCH_SIZE ${HALORIC_UNITY_BATCH})
    # Each of their sources has sizes and the like of its own, under the same names.
    if(name MATCHES "^haloric_linux_(files|form|qt|shell)$")
        set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    endif()
endfunction()

# haloric_library(NAME SOURCES… [DEPENDS targets…]): a static library of one folder.
function(haloric_library name)
    cmake_parse_arguments(arg "" "" "DEPENDS" ${ARGN})
    add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
    haloric_compile_in_batches(${name})
    target_link_libraries(${name} PUBLIC haloric_options ${arg_DEPENDS})
endfunction()

# What `./test quick` runs, what the thread sanitizer is worth building for, and what is tested as it is shipped.
add_custom_target(haloric_quick_tests)
add_custom_target(haloric_thread_tests)
add_custom_target(haloric_shipped_tests)
add_custom_target(haloric_macos_tests) # those of the macOS host, on a substitute of macOS or on a Mac

# Tests are compiled once for each time that they run, so what counts is the compiler's time, not theirs.
set(HALORIC_TEST_OPTIONS "$<$<CONFIG:RelWithDebInfo>:-O1;-g1>")

# haloric_test(NAME SOURCES… [DEPENDS targets…] [LABELS labels…]): a GoogleTest program whose tests run under ctest.
function(haloric_test name)
    cmake_parse_arguments(arg "" "" "DEPENDS;LABELS" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    haloric_compile_in_batches(${name})
    # It replaces the allocation functions, which the compiler must not look through in the tests that it counts in.
    set_source_files_properties("${PROJECT_SOURCE_DIR}/tests/support/AllocationCounter.cpp"
        PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_link_libraries(${name} PRIVATE haloric_options ${arg_DEPENDS} GTest::gmock_main)
    target_compile_options(${name} PRIVATE "${HALORIC_TEST_OPTIONS}")
    target_precompile_headers(${name} REUSE_FROM haloric_test_pch)
    # One label, because the discovery cannot pass a list on; `ctest -L threads` finds it inside "unit-threads".
    list(JOIN arg_LABELS "-" label)
    gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_PREFIX "${name}."
        PROPERTIES LABELS "${label}" TIMEOUT 600)
    if("unit" IN_LIST arg_LABELS OR "scenario" IN_LIST arg_LABELS)
        add_dependencies(haloric_quick_tests ${name})
    endif()
    foreach(kind IN ITEMS thread shipped)
        if(arg_LABELS MATCHES "${kind}")
            add_dependencies(haloric_${kind}_tests ${name})
        endif()
    endforeach()
    if("macos" IN_LIST arg_LABELS)
        add_dependencies(haloric_macos_tests ${name})
    endif()
endfunction()
