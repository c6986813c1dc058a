# SPDX-License-Identifier: MIT
# Debian packages, one for each component: `cpack -G DEB` in a build folder. The preset "package" makes
# the build for it.
set(CPACK_PACKAGE_NAME consolewidgets)
set(CPACK_PACKAGE_VENDOR "The ConsoleWidgets authors")
set(CPACK_PACKAGE_CONTACT "The ConsoleWidgets authors <maintainers@consolewidgets.example>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=")
foreach(library IN LISTS console_libraries)
    get_target_property(folder ${library} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
endforeach()
set(same_version "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
set(libraries libconsolewidgets${PROJECT_VERSION_MAJOR})

# console_package(COMPONENT NAME SECTION SUMMARY DESCRIPTION): the package that carries a component.
function(console_package component name section summary description)
    string(TOUPPER ${component} key)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${description}" PARENT_SCOPE)
    install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name}
        RENAME copyright COMPONENT ${component})
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
endfunction()

set(CPACK_COMPONENTS_ALL)
console_package(runtime ${libraries} libs
    "controls for the editor of a digital mixing console"
    "Dials, keys, menus, meters, curves and patch grids for Qt 6, each bound to one\n\
parameter of a console, and an embedded parameter memory with undo.")

console_package(devel libconsolewidgets-dev libdevel
    "controls for the editor of a mixing console, development files"
    "Headers, a CMake package, pictures, and a kit for testing controls and parameter\n\
memories of one's own.")
set(CPACK_DEBIAN_DEVEL_PACKAGE_DEPENDS
    "${libraries} ${same_version}, qt6-base-dev (>= 6.4), libgl-dev")

console_package(editor console-editor sound
    "editor for a digital mixing console"
    "Channel strips, dynamics with live curves, patch grids and a meter bridge, working on\n\
a simulated console.")
set(CPACK_DEBIAN_EDITOR_PACKAGE_DEPENDS
    "${libraries} ${same_version}, qt6-qpa-plugins, libqt6sql6-sqlite")
set(CPACK_DEBIAN_EDITOR_PACKAGE_RECOMMENDS "qt6-wayland, hicolor-icon-theme")

console_package(designer consolewidgets-designer devel
    "plugin of Qt Designer for the controls of a mixing console"
    "Lets Qt Designer place the controls of libconsolewidgets and show them as they are.")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_DEPENDS "${libraries} ${same_version}")
set(CPACK_DEBIAN_DESIGNER_PACKAGE_RECOMMENDS designer-qt6)
include(CPack)
