# SPDX-License-Identifier: MIT
# What `cmake --install` puts where. Components: runtime (the libraries), devel, designer, editor.
include(CMakePackageConfigHelpers)

set(console_headers ${CMAKE_INSTALL_INCLUDEDIR}/consolewidgets)
set(console_cmake ${CMAKE_INSTALL_LIBDIR}/cmake/ConsoleWidgets)

install(TARGETS ${console_libraries} EXPORT ConsoleWidgets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT devel
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT devel)
install(TARGETS ConsoleInterfaces ConsoleCompanions console-images EXPORT ConsoleWidgets)
set(console_qt Core Gui Widgets)
if(NOT BUILD_SHARED_LIBS)
    list(APPEND console_qt UiTools)
endif()
if(CONSOLEWIDGETS_TESTKIT)
    install(TARGETS ConsoleTestKit EXPORT ConsoleWidgets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT devel)
    list(APPEND console_qt Test)
endif()
list(JOIN console_qt " " console_qt)
install(FILES ${CONSOLE_IMAGES_OBJECT} DESTINATION ${CONSOLE_IMAGES_FOLDER} COMPONENT devel)

install(CODE "set(SOURCE [[${PROJECT_SOURCE_DIR}]])\nset(HEADERS [[${console_headers}]])"
    COMPONENT devel)
install(SCRIPT ${PROJECT_SOURCE_DIR}/cmake/InstallHeaders.cmake COMPONENT devel)

install(EXPORT ConsoleWidgets NAMESPACE ConsoleWidgets:: FILE ConsoleWidgetsTargets.cmake
    DESTINATION ${console_cmake} COMPONENT devel)
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/ConsoleWidgetsConfig.cmake.in
    ${PROJECT_BINARY_DIR}/ConsoleWidgetsConfig.cmake INSTALL_DESTINATION ${console_cmake})
# Until 1.0 a minor version may change what programs are built against.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/ConsoleWidgetsConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/ConsoleWidgetsConfig.cmake
    ${PROJECT_BINARY_DIR}/ConsoleWidgetsConfigVersion.cmake
    DESTINATION ${console_cmake} COMPONENT devel)

if(CONSOLEWIDGETS_DESIGNER)
    # Qt's own folder of plugins, below this prefix.
    set(console_plugin ${QT6_INSTALL_PLUGINS}/designer)
    file(RELATIVE_PATH console_back "/${console_plugin}" "/${CMAKE_INSTALL_LIBDIR}")
    set_target_properties(ConsoleWidgetsDesigner PROPERTIES
        INSTALL_RPATH "$ORIGIN/${console_back}")
    install(TARGETS ConsoleWidgetsDesigner LIBRARY DESTINATION ${console_plugin} COMPONENT designer)
endif()

if(NOT CONSOLEWIDGETS_EDITOR)
    return()
endif()
file(RELATIVE_PATH console_back "/${CMAKE_INSTALL_BINDIR}" "/${CMAKE_INSTALL_LIBDIR}")
set_target_properties(console-editor PROPERTIES INSTALL_RPATH "$ORIGIN/${console_back}")
install(TARGETS console-editor RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT editor)
install(FILES ${PROJECT_SOURCE_DIR}/editor/console-editor.desktop
    DESTINATION ${CMAKE_INSTALL_DATADIR}/applications COMPONENT editor)
foreach(icon IN ITEMS 64:icon-64 128:icon-64@2x 256:icon-256 512:icon-256@2x)
    string(REPLACE ":" ";" icon ${icon})
    list(GET icon 0 size)
    list(GET icon 1 file)
    install(FILES ${PROJECT_BINARY_DIR}/images/artwork/${file}.png
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps
        RENAME console-editor.png COMPONENT editor)
endforeach()
