# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Runs Doxygen, and fails on what it warns of: a class, a function, a type without a word, a name that it cannot resolve, a
# parameter that does not exist. A member of a class may go without where its name and type say all, and so may one of a
# family of functions, if the family has its word.
cmake_minimum_required(VERSION 3.21)
set(families HBStagesOf HBDescribe HBToVariant HBFromVariant operator<< operator>>)

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
execute_process(COMMAND ${DOXYGEN} ${DOXYFILE} OUTPUT_QUIET ERROR_VARIABLE errors RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    message(FATAL_ERROR "Doxygen: ${result}\n${errors}")
endif()
file(GLOB pages ${WORK}/html/class*.html)
if(NOT pages)
    message(FATAL_ERROR "There are no pages of classes in ${WORK}/html")
endif()

file(STRINGS ${WORK}/warnings warnings)
list(FILTER warnings EXCLUDE REGEX "warning: Member .* of (class|struct) .* is not documented")
list(JOIN families "|" families)
list(FILTER warnings EXCLUDE REGEX "warning: Member (${families})\\(.* of file .* is not documented")
if(warnings)
    list(JOIN warnings "\n" warnings)
    message(FATAL_ERROR "${warnings}")
endif()
