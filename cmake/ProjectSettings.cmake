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

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release)
endif()

option(BUILD_TESTING "Build the tests" ON)
if(BUILD_TESTING)
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

# The Qt headers that nearly every source includes, parsed once per target.
function(console_precompile target)
    target_precompile_headers(${target} PRIVATE <QWidget> <QPainter> <QString> <QVariant> <QList>
        <QHash> <QPointer> <QDataStream> <QEvent> <QApplication> <memory> <atomic> <cmath>)
endfunction()
