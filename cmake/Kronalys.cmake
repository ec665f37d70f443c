# Flags that every target of the project shares.
add_library(kronalys_flags INTERFACE)
target_compile_options(kronalys_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wold-style-cast
    -Wshadow=local -Wsuggest-override)
if(KRONALYS_WERROR)
    target_compile_options(kronalys_flags INTERFACE -Werror)
endif()
target_compile_definitions(kronalys_flags INTERFACE
    QT_NO_CAST_FROM_BYTEARRAY QT_DISABLE_DEPRECATED_BEFORE=0x050C00)
target_include_directories(kronalys_flags INTERFACE ${PROJECT_SOURCE_DIR}/src)

# kronalys_library(NAME SOURCES ... LINK ...): one room of the house as a static library.
function(kronalys_library name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${ARG_SOURCES})
    target_link_libraries(${name} PUBLIC kronalys_flags ${ARG_LINK})
endfunction()

# kronalys_test(tst_NAME LINK ... [TIMEOUT seconds]): one Qt Test executable from tst_NAME.cpp, run without a
# display, in UTC and the C locale, with a home of its own.
function(kronalys_test name)
    cmake_parse_arguments(ARG "" "TIMEOUT" "LINK" ${ARGN})
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 120)
    endif()
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    add_executable(${name} ${name}.cpp)
    target_link_libraries(${name} PRIVATE ${ARG_LINK} test_support Qt5::Test)
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        LABELS ${folder}
        ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;QTEST_FUNCTION_TIMEOUT=110000;\
ASAN_OPTIONS=detect_leaks=0:allocator_may_return_null=0;UBSAN_OPTIONS=print_stacktrace=1;\
KRONALYS_SOURCE=${PROJECT_SOURCE_DIR};KRONALYS_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
endfunction()
