# What every target of ours is compiled with, and the helpers that declare one.

add_library(fennel_options INTERFACE)
target_compile_options(fennel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_compile_definitions(fennel_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS)
if(FENNEL_SANITIZE)
    target_compile_options(fennel_options INTERFACE
        -fsanitize=${FENNEL_SANITIZE} -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(fennel_options INTERFACE -fsanitize=${FENNEL_SANITIZE})
endif()
if(FENNEL_FUZZ)
    # Without it libFuzzer sees only the branches of the fuzz target itself.
    target_compile_options(fennel_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# fennel_unity(TARGET): with FENNEL_UNITY, the sources of the target that lie in one folder are compiled
# as one, so names in a folder's unnamed namespaces must differ. Called where the target was made.
function(fennel_unity target)
    if(NOT FENNEL_UNITY)
        return()
    endif()
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    get_target_property(sources ${target} SOURCES)
    foreach(source ${sources})
        cmake_path(GET source PARENT_PATH folder)
        cmake_path(GET folder FILENAME folder)
        set_source_files_properties(${source} PROPERTIES UNITY_GROUP "${target}_${folder}")
    endforeach()
endfunction()

# fennel_bridge(NAME FOLDER SOURCES...): a tool program, placed in Tools/FOLDER beside the editor.
function(fennel_bridge name folder)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE fennel_options)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    set_target_properties(${name} PROPERTIES
        AUTOMOC OFF
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin/Tools/${folder})
    fennel_unity(${name})
endfunction()

# fennel_test(SUBSYSTEM [TIMEOUT SECONDS] SOURCES...): the test program of one subsystem, its cases
# known to CTest.
function(fennel_test subsystem)
    cmake_parse_arguments(arg "" TIMEOUT "" ${ARGN})
    if(NOT arg_TIMEOUT)
        set(arg_TIMEOUT 120)
    endif()
    set(name test_${subsystem})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE fennel_test_support fennel_options)
    # The cases themselves take no time; compiling them does.
    target_compile_options(${name} PRIVATE -O0)
    target_precompile_headers(${name} REUSE_FROM fennel_test_headers)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    gtest_discover_tests(${name}
        TEST_PREFIX ${subsystem}/
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT ${arg_TIMEOUT})
endfunction()

# fennel_link_static(NAME): no dynamic library at all, which halves the time a small program needs to
# start. Sanitizers need the dynamic ones.
function(fennel_link_static name)
    if(FENNEL_DEFLATE_ARCHIVE AND FENNEL_ZLIB_ARCHIVE AND NOT FENNEL_SANITIZE)
        target_link_options(${name} PRIVATE -static)
    endif()
endfunction()

# Named, not by the paths that pkg-config gives: a program without dynamic libraries then takes their
# archives, where there are some, and any other program the shared ones.
find_library(FENNEL_DEFLATE_ARCHIVE libdeflate.a)
find_library(FENNEL_ZLIB_ARCHIVE libz.a)
if(FENNEL_DEFLATE_ARCHIVE AND FENNEL_ZLIB_ARCHIVE)
    set_target_properties(PkgConfig::deflate PROPERTIES INTERFACE_LINK_LIBRARIES deflate)
    set_target_properties(PkgConfig::zlib PROPERTIES INTERFACE_LINK_LIBRARIES z)
endif()
