# SPDX-License-Identifier: MIT
# Named by the presets: compiles through ccache where it is installed, so that a change of preset
# or branch costs little. Whoever names another launcher keeps it.
find_program(CONSOLEWIDGETS_CCACHE ccache DOC "Compiler cache; empty for none")
mark_as_advanced(CONSOLEWIDGETS_CCACHE)

if(CONSOLEWIDGETS_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    # Without this leniency ccache passes over every source that uses a precompiled header, and with
    # GCC it needs to see which one that is.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND};-E;env;CCACHE_SLOPPINESS=pch_defines,time_macros;${CONSOLEWIDGETS_CCACHE}")
    if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
        add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fpch-preprocess>)
    endif()
endif()
