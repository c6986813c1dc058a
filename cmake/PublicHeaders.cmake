# SPDX-License-Identifier: MIT
# console_public_headers(SOURCE RESULT): the headers that are installed, as paths from the root of the
# tree. Public is what a library exports, the boundary, what widgets are made with, and whatever those
# include.
cmake_policy(VERSION 3.25)
function(console_public_headers source result)
    file(GLOB_RECURSE waiting RELATIVE ${source}
        ${source}/interfaces/*.h ${source}/toolkit/*.h ${source}/testkit/*.h
        ${source}/widgets/binding/*.h)
    file(GLOB_RECURSE candidates RELATIVE ${source} ${source}/widgets/*.h ${source}/companions/*.h)
    foreach(header IN LISTS candidates)
        file(STRINGS ${source}/${header} exports REGEX "CONSOLE(WIDGETS|COMPANIONS)_EXPORT ")
        if(exports AND NOT header MATCHES "TestedExport")
            list(APPEND waiting ${header})
        endif()
    endforeach()

    set(public)
    while(waiting)
        list(POP_FRONT waiting header)
        if(header IN_LIST public)
            continue()
        endif()
        list(APPEND public ${header})
        file(STRINGS ${source}/${header} includes REGEX "^#include \"")
        list(TRANSFORM includes REPLACE "^#include \"(.*)\".*" "\\1")
        list(APPEND waiting ${includes})
    endwhile()
    set(${result} ${public} PARENT_SCOPE)
endfunction()
