# SPDX-License-Identifier: MIT
# What is built, and of which parts of Qt. Inside another project, as a folder of it or fetched, that
# is the libraries alone, and nothing is installed; static or shared as it likes.
option(CONSOLEWIDGETS_EDITOR "Build the console editor" ${PROJECT_IS_TOP_LEVEL})
option(CONSOLEWIDGETS_DESIGNER "Build the plugin of Qt Designer" ${PROJECT_IS_TOP_LEVEL})
option(CONSOLEWIDGETS_TESTKIT "Build the kit for tests of controls and memories"
    ${PROJECT_IS_TOP_LEVEL})
option(CONSOLEWIDGETS_EXAMPLES "Build the examples" ${PROJECT_IS_TOP_LEVEL})
option(CONSOLEWIDGETS_INSTALL "Install what is built" ${PROJECT_IS_TOP_LEVEL})
option(CONSOLEWIDGETS_DOCS "Target docs, the reference site; needs Doxygen" OFF)
option(CONSOLEWIDGETS_BENCH "Build the speed table; needs Google Benchmark" OFF)
option(CONSOLEWIDGETS_FUZZ "Build the entry points for libFuzzer; needs clang" OFF)

if(PROJECT_IS_TOP_LEVEL)
    option(BUILD_SHARED_LIBS "Build shared libraries" ON)
    option(BUILD_TESTING "Build the tests" ON)
    set(CONSOLEWIDGETS_TESTS ${BUILD_TESTING})
else()
    set(CONSOLEWIDGETS_TESTS OFF)
    # Who links the libraries needs these parts of Qt where it stands.
    set(CMAKE_FIND_PACKAGE_TARGETS_GLOBAL ON)
endif()

# Each brings along what it uses.
if(CONSOLEWIDGETS_TESTS)
    set(CONSOLEWIDGETS_DESIGNER ON)
    set(CONSOLEWIDGETS_TESTKIT ON)
endif()
if(CONSOLEWIDGETS_TESTS OR CONSOLEWIDGETS_DOCS OR CONSOLEWIDGETS_BENCH OR CONSOLEWIDGETS_FUZZ)
    set(CONSOLEWIDGETS_EDITOR ON)
endif()
if(CONSOLEWIDGETS_EXAMPLES)
    set(CONSOLEWIDGETS_TESTKIT ON)
endif()

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Gui Widgets UiTools)
if(CONSOLEWIDGETS_EDITOR)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Sql)
endif()
if(CONSOLEWIDGETS_TESTKIT)
    find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
endif()
