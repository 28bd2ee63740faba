# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# What the tests that build something share. They get WORK_DIR, which begins empty, QT_VERSION, GENERATOR, CXX_COMPILER and
# CXX_COMPILER_LAUNCHER.
set(ENV{CMAKE_GENERATOR} ${GENERATOR})
set(ENV{CXX} ${CXX_COMPILER})
# Left out when it is empty: ccache is optional.
if(CXX_COMPILER_LAUNCHER)
    set(ENV{CMAKE_CXX_COMPILER_LAUNCHER} "${CXX_COMPILER_LAUNCHER}")
endif()

# run(<step> <command>...): `output` is what the command said; if it fails, the test ends with it.
function(run step)
    message(STATUS ${step})
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${step}: ${result}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})
