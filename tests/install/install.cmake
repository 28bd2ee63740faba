# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Installs the build into a folder of its own, moves that folder, builds and runs the embedding example against it,
# and builds the panels a second time against the installed host, as they are built for a host of someone else's.
cmake_minimum_required(VERSION 3.21)

set(prefix ${WORK_DIR}/prefix)
set(ENV{CMAKE_PREFIX_PATH} ${prefix})
set(ENV{CMAKE_GENERATOR} ${GENERATOR})
set(ENV{CXX} ${CXX_COMPILER})
# Left out when it is empty: ccache is optional.
if(CXX_COMPILER_LAUNCHER)
    set(ENV{CMAKE_CXX_COMPILER_LAUNCHER} ${CXX_COMPILER_LAUNCHER})
    set(ENV{CCACHE_BASEDIR} ${SOURCE_DIR})
    set(ENV{CCACHE_NOHASHDIR} 1)
endif()

function(run step)
    message(STATUS ${step})
    execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${step}: ${result}\n${output}")
    endif()
endfunction()

file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

# Moved afterwards, so that nothing can depend on the folder it was installed to.
run("Install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/elsewhere)
file(RENAME ${WORK_DIR}/elsewhere ${prefix})

# ---- Embedding ----
set(example ${WORK_DIR}/embed)
run("Configure the example" ${CMAKE_COMMAND} -S ${SOURCE_DIR}/examples/embed -B ${example})
run("Build the example" ${CMAKE_COMMAND} --build ${example})

# Two grey pixels of level 100, which the example makes 20 levels lighter.
file(WRITE ${WORK_DIR}/photo.ppm "P3 2 1 255 100 100 100 100 100 100\n")
run("Run the example" ${example}/embed ${WORK_DIR}/photo.ppm ${WORK_DIR}/result.ppm)
file(READ ${WORK_DIR}/result.ppm result HEX)
if(NOT result MATCHES "787878787878$")
    message(FATAL_ERROR "The example did not lighten the photo: ${result}")
endif()

# ---- Another host ----
set(panels ${WORK_DIR}/panels)
run("Configure the panels for another host" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${panels}
    -D ADJUSTMENT_PANELS_HOST_PACKAGE=AdjustmentPanelsHost -D CMAKE_BUILD_TYPE=Debug)
run("Build the panels for another host" ${CMAKE_COMMAND} --build ${panels} --target Panels)
