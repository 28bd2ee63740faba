# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Copies the tree without the folders of the panels, and builds and runs there what must not need them: the adjustments
# with their tests, the photo files and the replayer.
cmake_minimum_required(VERSION 3.21)

set(CXX_COMPILER_LAUNCHER "") # it names the folder of the sources, which is another here
include(${CMAKE_CURRENT_LIST_DIR}/../RunStep.cmake)

foreach(folder adjustments cmake docs fuzz host packaging photo programs replay samples tests theme translations)
    file(COPY ${SOURCE_DIR}/${folder} DESTINATION ${WORK_DIR}/tree)
endforeach()
file(COPY ${SOURCE_DIR}/CMakeLists.txt ${SOURCE_DIR}/CHANGELOG.md ${SOURCE_DIR}/LICENSE DESTINATION ${WORK_DIR}/tree)

# As deep as the build that has compiled the same before, so that ccache knows it again.
set(build ${WORK_DIR}/tree/build/dev)
if(QT_VERSION EQUAL 6)
    set(suffix -qt6)
endif()
run("Configure" ${CMAKE_COMMAND} -S ${WORK_DIR}/tree -B ${build} -D ADJUSTMENT_PANELS_WIDGETS=OFF
    -D ADJUSTMENT_PANELS_WERROR=${WERROR} -D ADJUSTMENT_PANELS_CCACHE=${CCACHE} -D ADJUSTMENT_PANELS_BULK=${BULK}
    -D ADJUSTMENT_PANELS_QT=${QT_VERSION} -D CMAKE_BUILD_TYPE=${BUILD_TYPE} -D "CMAKE_CXX_FLAGS_DEBUG=${CXX_FLAGS}")
run("Build" ${CMAKE_COMMAND} --build ${build} --target panel-replay tst_EveryAdjustment tst_HBRecipe tst_PanelReplay)
run("Adjust" ${build}/tests/adjustments/tst_EveryAdjustment Rows EightThreads)
run("List" ${build}/replay/panel-replay${suffix} list)
run("Ask what the replayer links" ldd ${build}/replay/panel-replay${suffix})
if(output MATCHES "Qt[56]Widgets")
    message(FATAL_ERROR "panel-replay links Qt's widgets:\n${output}")
endif()
