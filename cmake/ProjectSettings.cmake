# SPDX-License-Identifier: MIT
# Settings that hold for every target: language, warnings, sanitizers, precompiled headers.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release)
endif()

if(CONSOLEWIDGETS_TESTS)
    enable_testing()
else()
    # Some classes are exported for their tests alone.
    add_compile_definitions(CONSOLEWIDGETS_UNTESTED)
endif()

option(CONSOLEWIDGETS_WERROR "Treat compiler warnings as errors" OFF)
set(CONSOLEWIDGETS_SANITIZE "" CACHE STRING
    "Sanitizers to build with: empty, \"address,undefined\" or \"thread\"")

if(CONSOLEWIDGETS_SANITIZE)
    add_compile_options(-fsanitize=${CONSOLEWIDGETS_SANITIZE} -fno-omit-frame-pointer
                        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${CONSOLEWIDGETS_SANITIZE})
endif()

# Every target of the project links this privately.
add_library(console-settings INTERFACE)
target_compile_options(console-settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    $<$<BOOL:${CONSOLEWIDGETS_WERROR}>:-Werror>)
target_compile_definitions(console-settings INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_STRICT_ITERATORS)
target_include_directories(console-settings INTERFACE ${PROJECT_SOURCE_DIR})

# What many sources include, parsed once for the whole tree: Qt has all programs and libraries compiled
# as position independent code, so the same flags do for all. Definitions must be those of every target
# that uses it, hence without the mere names of Qt's modules beyond Gui.
file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/precompiled.cpp CONTENT "")
add_library(console-precompiled OBJECT EXCLUDE_FROM_ALL ${PROJECT_BINARY_DIR}/precompiled.cpp)
target_include_directories(console-precompiled PRIVATE
    $<TARGET_PROPERTY:Qt6::Widgets,INTERFACE_INCLUDE_DIRECTORIES>)
target_link_libraries(console-precompiled PRIVATE Qt6::Gui console-settings)
set_target_properties(console-precompiled PROPERTIES AUTOMOC OFF AUTORCC OFF)
target_precompile_headers(console-precompiled PRIVATE
    <QAccessible> <QApplication> <QDataStream> <QDir> <QElapsedTimer> <QHash> <QLabel> <QList>
    <QMouseEvent> <QPainter> <QPointer> <QRegularExpression> <QTimer> <QUndoStack> <QVariant> <QWidget>
    <algorithm> <array> <atomic> <chrono> <cmath> <functional> <map> <memory> <optional> <thread>
    <vector>)

# console_precompile(TARGET): for targets that link Qt6::Gui and console-settings.
function(console_precompile target)
    target_precompile_headers(${target} REUSE_FROM console-precompiled)
endfunction()

# Release builds compile the sources of a folder as one, which takes two thirds of the time. What stands
# in their unnamed namespaces has names of its own in the folder, therefore.
option(CONSOLEWIDGETS_UNITY "Compile the sources of a folder at once" OFF)
set(CMAKE_UNITY_BUILD OFF)

# console_unity(TARGET [APART name...]): one unit for each folder that the target's sources are in; the
# sources and folders named, from the root of the tree, are compiled by themselves.
function(console_unity target)
    if(NOT CONSOLEWIDGETS_UNITY)
        return()
    endif()
    cmake_parse_arguments(UNITY "" "" "APART" ${ARGN})
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
    # The compiler takes all sources of a unit but one for headers.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
    get_target_property(sources ${target} SOURCES)
    list(FILTER sources INCLUDE REGEX "\\.cpp$")
    foreach(source IN LISTS sources)
        get_filename_component(source ${source} ABSOLUTE)
        file(RELATIVE_PATH name ${PROJECT_SOURCE_DIR} ${source})
        get_filename_component(folder ${name} DIRECTORY)
        if(NOT name IN_LIST UNITY_APART AND NOT folder IN_LIST UNITY_APART)
            string(MAKE_C_IDENTIFIER ${folder} unit)
            set_source_files_properties(${source} TARGET_DIRECTORY ${target}
                PROPERTIES UNITY_GROUP ${unit})
        endif()
    endforeach()
endfunction()
