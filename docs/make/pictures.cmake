# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Makes PICTURES/<panel>.jpg for each demonstration in SAMPLES/recipes: the sample before and after it.
cmake_minimum_required(VERSION 3.21)
set(sample coffee)
execute_process(COMMAND ${REPLAY} sheet ${SAMPLES}/${sample}.png -o ${WORK} --overwrite
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${PICTURES})
file(MAKE_DIRECTORY ${PICTURES})
file(GLOB recipes ${SAMPLES}/recipes/*.json)
foreach(recipe IN LISTS recipes)
    cmake_path(GET recipe STEM panel)
    execute_process(COMMAND ${PAGES} --picture ${SAMPLES}/${sample}.png ${WORK}/${sample}-${panel}.png
        ${PICTURES}/${panel}.jpg COMMAND_ERROR_IS_FATAL ANY)
endforeach()
