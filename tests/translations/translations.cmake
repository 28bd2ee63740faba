# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Names texts in the sources at ROOT that lupdate cannot see, and the languages that lack a translation or keep one of
# a text that is gone. LUPDATE is the program, UPDATE the script that runs it; WORK is a folder for copies.
cmake_minimum_required(VERSION 3.21)

set(faults 0)
macro(fault text)
    math(EXPR faults "${faults} + 1")
    message("${text}")
endmacro()

# ---- What lupdate cannot see ----

set(gap "[ \n]*")
set(word "[A-Za-z0-9_]+")
# A text that is not written where it is translated must be announced in the same file.
set(hidden "[^A-Za-z0-9_]tr\\(${gap}[^ \n\")]" "[:>.]translate\\(${gap}(\"[^\"]*\"|${word}),${gap}[A-Za-z_][^0-9]")
# Plain words given to what shows them.
set(literal "\\(${gap}(${word},${gap})?(Q[A-Za-z0-9]+\\()?\"[^\"\n]*[A-Za-z][a-z]")
set(plain "set([A-Za-z]*Text|[A-Za-z]*Tip|[A-Za-z]*Title|WhatsThis|Accessible[A-Za-z]*|Prefix|Suffix)${literal}"
    "add(Action|Button|Item|Menu|Tab|ToolBar)${literal}"
    "(showMessage|information|question|warning|critical|[Ff]ail|Refuse|PrintError|Message)${literal}"
    "(error|reason|problem)${gap}=${gap}(Q[A-Za-z0-9]+\\()?\"[^\"\n]*[A-Za-z][a-z]")

function(find_text file code what)
    foreach(pattern IN LISTS ARGN)
        if(code MATCHES "${pattern}")
            fault("${file}: ${what}: ${CMAKE_MATCH_0}")
        endif()
    endforeach()
    set(faults ${faults} PARENT_SCOPE)
endfunction()

file(GLOB_RECURSE files RELATIVE ${ROOT} ${ROOT}/*.cpp ${ROOT}/*.h)
list(FILTER files EXCLUDE REGEX "^(bench|build[^/]*|examples|fuzz|tests)/")
list(SORT files)
foreach(file IN LISTS files)
    file(READ ${ROOT}/${file} code)
    # What lists of CMake would take amiss, and comments.
    string(REGEX REPLACE "[][;]" " " code "${code}")
    string(REGEX REPLACE "//[^\n]*" "" code "${code}")
    if(NOT code MATCHES "QT_TRANSLATE_NOOP\\(")
        find_text(${file} "${code}" "translates no literal, nor one in QT_TRANSLATE_NOOP()" ${hidden})
    endif()
    find_text(${file} "${code}" "shows a text that is not translated" ${plain})
endforeach()
list(LENGTH files count)
if(count EQUAL 0)
    message(FATAL_ERROR "no sources in ${ROOT}")
endif()

# ---- What a language lacks ----

file(GLOB languages RELATIVE ${ROOT}/translations ${ROOT}/translations/*.ts)
set(english ${languages})
list(FILTER english INCLUDE REGEX "_en\\.ts$")
list(FILTER languages EXCLUDE REGEX "_en\\.ts$")
if(NOT languages)
    message(FATAL_ERROR "no language in ${ROOT}/translations")
endif()
file(REMOVE_RECURSE ${WORK})
foreach(language IN LISTS languages)
    file(COPY ${ROOT}/translations/${language} DESTINATION ${WORK})
endforeach()
execute_process(COMMAND ${CMAKE_COMMAND} -D ROOT=${ROOT} -D TS=${WORK} -D LUPDATE=${LUPDATE} -P ${UPDATE}
    RESULT_VARIABLE result)
if(NOT result EQUAL 0)
    fault("lupdate failed")
endif()
foreach(language IN LISTS languages)
    file(SHA256 ${ROOT}/translations/${language} kept)
    file(SHA256 ${WORK}/${language} updated)
    if(NOT kept STREQUAL updated)
        fault("translations/${language}: not up to date; build the target translations-update")
    endif()
    file(READ ${WORK}/${language} text)
    string(REGEX MATCHALL "<translation[^>]*type=|<translation/>|<translation></" unfinished "${text}")
    list(LENGTH unfinished count)
    if(count GREATER 0)
        fault("translations/${language}: ${count} texts without a translation")
    endif()
endforeach()

# English has some texts alone, which must be there.
list(GET languages 0 first)
file(READ ${ROOT}/translations/${first} texts)
foreach(language IN LISTS english)
    file(READ ${ROOT}/translations/${language} text)
    string(REGEX MATCHALL "<source>[^<]*</source>" sources "${text}")
    foreach(source IN LISTS sources)
        string(FIND "${texts}" "${source}" place)
        if(place EQUAL -1)
            fault("translations/${language}: no longer a text: ${source}")
        endif()
    endforeach()
endforeach()

if(faults GREATER 0)
    message(FATAL_ERROR "${faults} faults")
endif()
