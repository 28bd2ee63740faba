# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Builds the programs in the folder `examples` against the installed package NAME, and runs them; `recipes` is the folder of
# the demonstrations.
file(GLOB lists ${examples}/*/CMakeLists.txt)
foreach(list IN LISTS lists)
    cmake_path(GET list PARENT_PATH folder)
    cmake_path(GET folder FILENAME example)
    set(build ${WORK_DIR}/examples/${example})
    run("Configure ${example}" ${CMAKE_COMMAND} -S ${folder} -B ${build} -D PANELS=${NAME})
    run("Build ${example}" ${CMAKE_COMMAND} --build ${build})
endforeach()

# On pixels that can be foretold.
file(WRITE ${WORK_DIR}/photo.ppm "P3 2 2 255  200 100 50  200 100 50  100 100 100  100 100 100\n")
set(ENV{XDG_CONFIG_HOME} ${WORK_DIR}/config)
function(example_gives what expected)
    run("Run ${what}" ${WORK_DIR}/examples/${what}/${what} ${ARGN} ${WORK_DIR}/${what}.ppm)
    file(READ ${WORK_DIR}/${what}.ppm result HEX)
    if(NOT result MATCHES "${expected}$")
        message(FATAL_ERROR "${what} made ${result} instead of ...${expected}")
    endif()
endfunction()
# Grey of a third of each colour, 116.55.
example_gives(embed 757575757575646464646464 ${WORK_DIR}/photo.ppm)
# The first start knows no values and changes nothing. What the second finds, the demonstration's, is worked in: blue from
# 10, then all from 15 to 225 by gamma 1.2.
example_gives(five-panels c86432c86432646464646464 ${WORK_DIR}/photo.ppm)
file(READ ${recipes}/HBLevelsWidget.json values)
string(REPLACE "\n" "" values "${values}")
string(REPLACE "\"" "\\\"" values "${values}")
file(WRITE ${WORK_DIR}/config/AdjustmentPanels/five-panels.conf
    "[General]\nHBLevelsWidget=\"@ByteArray(${values})\"\n")
example_gives(five-panels e5782ee5782e787871787871 ${WORK_DIR}/photo.ppm)
# The upper half white, the lower one lighter by gamma 1.1.
example_gives(service ffffffffffff6d6d6d6d6d6d ${recipes}/HBThresholdWidget.json
    ${WORK_DIR}/photo.ppm)
