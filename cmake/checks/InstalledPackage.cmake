# SPDX-License-Identifier: MIT
# Installs BUILD below WORK, moves it from there, and builds and runs tests/consumer of SOURCE against
# it. Nothing that is installed names SOURCE or BUILD.
function(run what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(status)
        message("${output}")
        message(FATAL_ERROR "${what} failed.")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK}/first ${WORK}/prefix)
run("Installing" ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/prefix)
foreach(folder IN ITEMS ${SOURCE} ${BUILD})
    execute_process(COMMAND grep -rlF ${folder} ${WORK}/prefix OUTPUT_VARIABLE leaks)
    if(leaks)
        message(FATAL_ERROR "These name ${folder}:\n${leaks}")
    endif()
endforeach()

find_program(ccache ccache)
if(ccache)
    set(ENV{CMAKE_CXX_COMPILER_LAUNCHER} ${ccache})
endif()
run("Configuring" ${CMAKE_COMMAND} -S ${SOURCE}/tests/consumer -B ${WORK}/build -G ${GENERATOR}
    -DCMAKE_BUILD_TYPE=${BUILD_TYPE} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_PREFIX_PATH=${WORK}/prefix -DEXAMPLES=${SOURCE}/examples)
run("Building" ${CMAKE_COMMAND} --build ${WORK}/build)
run("Running" ${CMAKE_CTEST_COMMAND} --test-dir ${WORK}/build --output-on-failure)
