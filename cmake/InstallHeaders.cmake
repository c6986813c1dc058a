# SPDX-License-Identifier: MIT
# Run while installing: copies the public headers of SOURCE into HEADERS, in the tree's own layout.
include(${CMAKE_CURRENT_LIST_DIR}/PublicHeaders.cmake)
console_public_headers(${SOURCE} public)
foreach(header IN LISTS public)
    get_filename_component(folder ${header} DIRECTORY)
    file(INSTALL ${SOURCE}/${header} DESTINATION ${CMAKE_INSTALL_PREFIX}/${HEADERS}/${folder})
endforeach()
