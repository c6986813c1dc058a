# SPDX-License-Identifier: MIT
# Run while installing: copies the public headers of SOURCE in the tree's own layout. Public is what
# a library exports, the boundary, what widgets are made with, and whatever those include.
cmake_policy(VERSION 3.25)
set(public)
file(GLOB_RECURSE waiting RELATIVE ${SOURCE}
    ${SOURCE}/interfaces/*.h ${SOURCE}/toolkit/*.h ${SOURCE}/testkit/*.h
    ${SOURCE}/widgets/binding/*.h)
file(GLOB_RECURSE candidates RELATIVE ${SOURCE} ${SOURCE}/widgets/*.h ${SOURCE}/companions/*.h)
foreach(header IN LISTS candidates)
    file(STRINGS ${SOURCE}/${header} exports REGEX "CONSOLE(WIDGETS|COMPANIONS)_EXPORT ")
    if(exports)
        list(APPEND waiting ${header})
    endif()
endforeach()

while(waiting)
    list(POP_FRONT waiting header)
    if(header IN_LIST public)
        continue()
    endif()
    list(APPEND public ${header})
    file(STRINGS ${SOURCE}/${header} includes REGEX "^#include \"")
    list(TRANSFORM includes REPLACE "^#include \"(.*)\".*" "\\1")
    list(APPEND waiting ${includes})
endwhile()

foreach(header IN LISTS public)
    get_filename_component(folder ${header} DIRECTORY)
    file(INSTALL ${SOURCE}/${header} DESTINATION ${CMAKE_INSTALL_PREFIX}/${HEADERS}/${folder})
endforeach()
