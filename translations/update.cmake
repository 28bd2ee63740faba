# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Brings new texts of the product's folders in ROOT into the .ts files of the folder TS, and takes old ones out. LUPDATE
# is the program. Without line numbers, so that a change elsewhere in a source is no change here.
cmake_minimum_required(VERSION 3.21)

# All but what users never see.
set(others bench build cmake docs examples fuzz packaging samples tests tools translations)
file(GLOB folders LIST_DIRECTORIES TRUE RELATIVE ${ROOT} ${ROOT}/*)
list(REMOVE_ITEM folders ${others})
set(sources "")
foreach(folder IN LISTS folders)
    # Not a build folder of any name, nor what was installed here.
    file(GLOB_RECURSE code ${ROOT}/${folder}/*.cpp ${ROOT}/${folder}/*.h ${ROOT}/${folder}/*.ui)
    if(IS_DIRECTORY ${ROOT}/${folder} AND code AND NOT EXISTS ${ROOT}/${folder}/CMakeCache.txt)
        list(APPEND sources ${folder})
    endif()
endforeach()

file(GLOB languages ${TS}/*.ts)
# English has only what reads otherwise than it is spelt in the sources, on purpose.
list(FILTER languages EXCLUDE REGEX "_en\\.ts$")
execute_process(
    COMMAND ${LUPDATE} -silent -locations none -no-obsolete ${sources} -ts ${languages}
    WORKING_DIRECTORY ${ROOT}
    ERROR_VARIABLE messages
    RESULT_VARIABLE result)
message("${messages}")
if(NOT result EQUAL 0 OR messages MATCHES "Q_OBJECT") # without it, a text gets another context than at run time
    message(FATAL_ERROR "lupdate failed")
endif()
