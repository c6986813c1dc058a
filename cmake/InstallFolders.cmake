# SPDX-License-Identifier: MIT
# The folders below the prefix. Debian's own packages keep libraries by architecture; the linker and
# find_package() look there below any prefix, /usr/local as well.
if(EXISTS /etc/debian_version AND CMAKE_LIBRARY_ARCHITECTURE)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Libraries")
endif()
include(GNUInstallDirs)
