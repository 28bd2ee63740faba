# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Packs the build into Debian packages, unpacks these into a root of their own, and builds the examples and runs the
# programs there. Gets VERSION, SOVERSION and CPACK besides. tools/test-packages does the same on a bare system, and asks
# for Debian's rules.
cmake_minimum_required(VERSION 3.21)
include(${CMAKE_CURRENT_LIST_DIR}/../RunStep.cmake)
set(root ${WORK_DIR}/root)
set(prefix ${root}/usr)

# ---- Packing ----
run("Pack" ${CPACK} --config ${BUILD_DIR}/CPackConfig.cmake -B ${WORK_DIR}/packages
    -D CPACK_DEBIAN_COMPRESSION_TYPE=gzip)
file(GLOB packages ${WORK_DIR}/packages/*.deb)
set(all_files "")
foreach(package IN LISTS packages)
    run("Read ${package}" dpkg-deb --show --showformat=\${Package} ${package})
    set(name ${output})
    run("Read ${package}" dpkg-deb --show --showformat=\${Depends} ${package})
    set(depends_${name} "${output}")
    run("Unpack ${name}" dpkg-deb --extract ${package} ${WORK_DIR}/one)
    file(GLOB_RECURSE files RELATIVE ${WORK_DIR}/one ${WORK_DIR}/one/*)
    foreach(file copyright changelog.gz changelog.Debian.gz)
        if(NOT usr/share/doc/${name}/${file} IN_LIST files)
            message(FATAL_ERROR "${name} has no ${file}")
        endif()
    endforeach()
    list(FILTER files EXCLUDE REGEX "^usr/share/(doc|lintian/overrides)/${name}(/|$)")
    list(APPEND all_files ${files})
    file(COPY ${WORK_DIR}/one/ DESTINATION ${root})
    file(REMOVE_RECURSE ${WORK_DIR}/one)
    list(APPEND names ${name})
endforeach()

# Each file that is installed is in exactly one package, but for the licence, which is a distribution's own.
list(SORT all_files)
set(distinct ${all_files})
list(REMOVE_DUPLICATES distinct)
if(NOT distinct STREQUAL all_files)
    message(FATAL_ERROR "There are files in two packages: ${names}")
endif()
run("Install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/whole/usr)
file(GLOB_RECURSE installed RELATIVE ${WORK_DIR}/whole ${WORK_DIR}/whole/*)
list(FILTER installed EXCLUDE REGEX "/LICENSE$")
list(SORT installed)
list(REMOVE_ITEM distinct ${installed})
list(REMOVE_ITEM installed ${all_files})
if(distinct OR installed)
    message(FATAL_ERROR "Only installed: ${installed}\nOnly in packages: ${distinct}")
endif()
file(REMOVE_RECURSE ${WORK_DIR}/whole)

# What needs what. The replayer runs where there is no desktop.
foreach(edge "panel-replay:libadjustmentpanels-core${SOVERSION} (= ${VERSION}-1)" "panel-replay:libqt5gui5"
        "panel-editor:libadjustmentpanels${SOVERSION} (= ${VERSION}-1)" "panel-editor:libexiv2"
        "libadjustmentpanels-dev:libadjustmentpanels${SOVERSION} (= ${VERSION}-1)" "libadjustmentpanels-dev:qtbase5-dev"
        "libadjustmentpanels${SOVERSION}:libqt5widgets5" "libadjustmentpanels-core${SOVERSION}:libhwy1"
        "libadjustmentpanels-core${SOVERSION}:liblcms2-2")
    string(REGEX MATCH "^([^:]+):(.*)$" _ "${edge}")
    string(FIND "${depends_${CMAKE_MATCH_1}}" "${CMAKE_MATCH_2}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "${CMAKE_MATCH_1} does not depend on ${CMAKE_MATCH_2}: ${depends_${CMAKE_MATCH_1}}")
    endif()
endforeach()
foreach(package panel-replay libadjustmentpanels-core${SOVERSION})
    if("${depends_${package}}" MATCHES "widgets|libadjustmentpanels${SOVERSION} ")
        message(FATAL_ERROR "${package} brings widgets: ${depends_${package}}")
    endif()
endforeach()

# ---- What desktops read ----
set(share ${prefix}/share)
run("Check the desktop entry" desktop-file-validate ${share}/applications/org.adjustmentpanels.editor.desktop)
run("Check the page of the software centre" appstreamcli validate-tree --no-net ${root})
run("Check the type of recipes" xmllint --noout --nonet ${share}/mime/packages/adjustment-panels.xml)
run("Read the type of recipes" update-mime-database -V ${share}/mime)
file(READ ${share}/mime/globs2 globs)
if(NOT globs MATCHES "application/x-adjustment-recipe.json:\\*\\.adjustment-recipe")
    message(FATAL_ERROR "The type of recipes has no name: ${globs}")
endif()

# ---- Programs ----
run("Read the manual" gzip -dc ${share}/man/man1/panel-editor.1.gz)
set(manual "${output}")
run("Ask the editor for its options" ${prefix}/bin/panel-editor --help)
string(REGEX MATCHALL "--[a-z-]+" options "${output}")
if(NOT options)
    message(FATAL_ERROR "The editor has no options: ${output}")
endif()
foreach(option IN LISTS options)
    string(REPLACE "-" "\\-" escaped ${option})
    string(FIND "${manual}" "${escaped}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "The manual of panel-editor has no ${option}")
    endif()
endforeach()
set(sample ${SOURCE_DIR}/samples/coffee.png)
run("Take a picture of the editor" ${prefix}/bin/panel-editor --screenshot ${WORK_DIR}/editor.png
    --panel HBCurvesWidget ${sample})
run("Ask in German" ${CMAKE_COMMAND} -E env LANGUAGE=de ${prefix}/bin/panel-replay list)
if(NOT output MATCHES "Tonwert")
    message(FATAL_ERROR "The installed programs speak no German: ${output}")
endif()
set(recipe ${share}/adjustment-panels/recipes/HBLevelsWidget.json)
run("Replay" ${prefix}/bin/panel-replay apply ${recipe} ${sample} -o ${WORK_DIR}/replayed)

# ---- Examples ----
set(ENV{CMAKE_PREFIX_PATH} ${prefix})
set(examples ${share}/doc/AdjustmentPanels/examples)
set(recipes ${share}/adjustment-panels/recipes)
include(${CMAKE_CURRENT_LIST_DIR}/examples.cmake)
