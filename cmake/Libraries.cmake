# SPDX-License-Identifier: MIT
# What the libraries are called, as files and for programs, and which of them are shared.
set(console_libraries ConsoleWidgets ConsoleMemory ConsoleUtilities ConsoleOptServer)

set_target_properties(ConsoleWidgets PROPERTIES EXPORT_NAME Widgets)
set_target_properties(ConsoleInterfaces PROPERTIES EXPORT_NAME Interfaces)
set_target_properties(ConsoleCompanions PROPERTIES EXPORT_NAME Companions)
set_target_properties(console-images PROPERTIES EXPORT_NAME Images)
foreach(part Memory Utilities OptServer)
    set_target_properties(Console${part} PROPERTIES
        EXPORT_NAME ${part} OUTPUT_NAME ConsoleWidgets${part})
endforeach()
if(CONSOLEWIDGETS_TESTKIT)
    set_target_properties(ConsoleTestKit PROPERTIES
        EXPORT_NAME TestKit OUTPUT_NAME ConsoleWidgetsTestKit)
endif()

foreach(library IN LISTS console_libraries)
    if(NOT BUILD_SHARED_LIBS)
        target_compile_definitions(${library} PUBLIC CONSOLEWIDGETS_STATIC)
        continue()
    endif()
    # Libraries find each other wherever the whole is put.
    set_target_properties(${library} PROPERTIES
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN" LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/private.map)
    target_link_options(${library} PRIVATE
        "LINKER:--version-script=${PROJECT_SOURCE_DIR}/cmake/private.map")
endforeach()
