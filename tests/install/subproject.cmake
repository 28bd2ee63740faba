# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Builds and runs a program that has the panels' tree as a part of it, with static libraries as is CMake's default, then
# the same program against those static libraries installed.
cmake_minimum_required(VERSION 3.21)
include(${CMAKE_CURRENT_LIST_DIR}/../RunStep.cmake)

set(whole ${WORK_DIR}/whole)
run("Configure the whole" ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${whole}
    -D SUBPROJECT=${SOURCE_DIR} -D ADJUSTMENT_PANELS_QT=${QT_VERSION} -D ADJUSTMENT_PANELS_INSTALL=ON -D ADJUSTMENT_PANELS_BULK=ON
    -D CMAKE_BUILD_TYPE=Debug -D EXPECTED_CMAKE_BUILD_TYPE=Debug
    -D CMAKE_CXX_FLAGS_DEBUG=-DHWY_COMPILE_ONLY_STATIC) # nobody debugs it, or needs it fast
run("Build it" ${CMAKE_COMMAND} --build ${whole})
run("Run it" ${whole}/consumer)
file(GLOB_RECURSE shared ${whole}/*.so)
if(shared)
    message(FATAL_ERROR "Shared libraries were built unasked: ${shared}")
endif()

set(ENV{CMAKE_PREFIX_PATH} ${WORK_DIR}/prefix)
run("Install" ${CMAKE_COMMAND} --install ${whole} --prefix ${WORK_DIR}/prefix)
set(consumer ${WORK_DIR}/consumer)
run("Configure the program" ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${consumer} -D PANELS=${NAME})
run("Build the program" ${CMAKE_COMMAND} --build ${consumer})
run("Run the program" ${consumer}/consumer)
