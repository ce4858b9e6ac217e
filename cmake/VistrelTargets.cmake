# The three kinds of targets this project has: a library per directory, a program, a test executable.

# Language level, warnings and Qt's strictness switches, for every target of this project.
add_library(vistrel_options INTERFACE)
target_compile_features(vistrel_options INTERFACE cxx_std_20)
target_compile_options(vistrel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Wcast-qual -Wnon-virtual-dtor -Woverloaded-virtual
    $<$<BOOL:${VISTREL_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(vistrel_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_include_directories(vistrel_options INTERFACE ${PROJECT_SOURCE_DIR})

# vistrel_library(NAME SOURCES file... [PUBLIC library...] [PRIVATE library...])
# PUBLIC only for what a header of the library needs.
function(vistrel_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;PUBLIC;PRIVATE" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC vistrel_options ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
endfunction()

# vistrel_program(NAME SOURCES file... LINK library...): lands in <build>/bin.
function(vistrel_program name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE vistrel_options ${ARG_LINK})
    set_target_properties(${name} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
endfunction()

# vistrel_test(NAME SOURCES file... LINK library... [LABELS label...] [TIMEOUT seconds] [RUN_SERIAL])
# One GoogleTest executable per subject. Libraries that need an application object link
# vistrel_test_core (QCoreApplication) or vistrel_test_widgets (QApplication, offscreen).
function(vistrel_test name)
    cmake_parse_arguments(ARG "RUN_SERIAL" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE vistrel_options GTest::gtest GTest::gmock ${ARG_LINK})
    set_target_properties(${name} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${ARG_TIMEOUT} LABELS "${ARG_LABELS}"
        RUN_SERIAL ${ARG_RUN_SERIAL})
endfunction()
