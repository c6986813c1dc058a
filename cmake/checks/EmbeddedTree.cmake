# SPDX-License-Identifier: MIT
# Builds tests/embedding of SOURCE in WORK, a project that has SOURCE as a folder and links its
# libraries statically, and runs it. It has the project's tests alone, and installs nothing.
function(run what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(status)
        message("${output}")
        message(FATAL_ERROR "${what} failed.")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

find_program(ccache ccache)
if(ccache)
    set(ENV{CMAKE_CXX_COMPILER_LAUNCHER} ${ccache})
endif()
run("Configuring" ${CMAKE_COMMAND} -S ${SOURCE}/tests/embedding -B ${WORK} -G ${GENERATOR}
    -DTREE=${SOURCE} -DCMAKE_CXX_COMPILER=${COMPILER} -DCONSOLEWIDGETS_UNITY=ON)
run("Building" ${CMAKE_COMMAND} --build ${WORK})
run("Running" ${CMAKE_CTEST_COMMAND} --test-dir ${WORK} --output-on-failure)
if(NOT output MATCHES "out of 1\n")
    message(FATAL_ERROR "There are other tests:\n${output}")
endif()

file(REMOVE_RECURSE ${WORK}/prefix)
run("Installing" ${CMAKE_COMMAND} --install ${WORK} --prefix ${WORK}/prefix)
file(GLOB_RECURSE unwanted ${WORK}/prefix/* ${WORK}/*.so ${WORK}/*.png ${WORK}/CPack*)
if(unwanted)
    message(FATAL_ERROR "These are there:\n${unwanted}")
endif()
