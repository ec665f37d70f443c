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

# kronalys_library(NAME LINK ...): the folder at hand, subfolders left out, as one static library.
function(kronalys_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.ui)
    add_library(${name} STATIC ${sources})
    target_link_libraries(${name} PUBLIC kronalys_flags ${ARG_LINK})
endfunction()

# kronalys_tests(LINK ...): every tst_NAME.cpp of the folder at hand as one Qt Test executable, run without a
# display, in UTC and the C locale.
function(kronalys_tests)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    get_filename_component(folder ${CMAKE_CURRENT_SOURCE_DIR} NAME)
    file(GLOB sources CONFIGURE_DEPENDS tst_*.cpp)
    foreach(source ${sources})
        get_filename_component(name ${source} NAME_WE)
        add_executable(${name} ${source})
        target_link_libraries(${name} PRIVATE ${ARG_LINK} test_support Qt5::Test)
        set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
        add_test(NAME ${name} COMMAND ${name})
        set_tests_properties(${name} PROPERTIES
            TIMEOUT 300
            LABELS ${folder}
            ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TZ=UTC;\
UBSAN_OPTIONS=print_stacktrace=1;ASAN_OPTIONS=detect_leaks=0;\
KRONALYS_SOURCE=${PROJECT_SOURCE_DIR};KRONALYS_BIN=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
    endforeach()
endfunction()
