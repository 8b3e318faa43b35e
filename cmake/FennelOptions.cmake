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

# fennel_bridge(NAME FOLDER SOURCES...): a tool program, placed in Tools/FOLDER beside the editor.
function(fennel_bridge name folder)
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE fennel_options)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/src)
    set_target_properties(${name} PROPERTIES
        RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin/Tools/${folder})
endfunction()

# fennel_test(SUBSYSTEM SOURCES...): the test program of one subsystem, its cases known to CTest.
function(fennel_test subsystem)
    set(name test_${subsystem})
    add_executable(${name} ${ARGN})
    target_link_libraries(${name} PRIVATE fennel_test_support fennel_options)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    gtest_discover_tests(${name}
        TEST_PREFIX ${subsystem}/
        DISCOVERY_MODE PRE_TEST
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120)
endfunction()
