# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Installs the build into a folder of its own, moves that folder, builds and runs programs against it, and compiles panels
# a second time against the installed host, as they are built for a host of someone else's.
cmake_minimum_required(VERSION 3.21)
include(${CMAKE_CURRENT_LIST_DIR}/../RunStep.cmake)

# Moved afterwards, so that nothing can depend on the folder it was installed to.
set(prefix ${WORK_DIR}/prefix)
set(ENV{CMAKE_PREFIX_PATH} ${prefix})
run("Install" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/elsewhere)
file(RENAME ${WORK_DIR}/elsewhere ${prefix})

# Nothing but our own names in folders that everybody shares.
file(GLOB_RECURSE libraries LIST_DIRECTORIES FALSE RELATIVE ${prefix} ${prefix}/lib*/*.so* ${prefix}/lib*/*.pc)
if(NOT libraries)
    message(FATAL_ERROR "No library is installed")
endif()
list(FILTER libraries EXCLUDE REGEX "/(lib)?AdjustmentPanels[^/]*$")
if(libraries)
    message(FATAL_ERROR "Installed under names that may be others': ${libraries}")
endif()

foreach(file man/man1/panel-replay${SUFFIX}.1 man/man1/panel-editor${SUFFIX}.1
        applications/org.adjustmentpanels.editor${SUFFIX}.desktop bash-completion/completions/panel-replay${SUFFIX}
        zsh/site-functions/_panel-replay${SUFFIX} fish/vendor_completions.d/panel-replay${SUFFIX}.fish)
    if(NOT EXISTS ${prefix}/share/${file} AND NOT EXISTS ${prefix}/share/${file}.gz)
        message(FATAL_ERROR "share/${file} is not installed")
    endif()
endforeach()

# Nor any that the packages for the other Qt have.
file(GLOB_RECURSE files LIST_DIRECTORIES FALSE RELATIVE ${prefix} ${prefix}/*)
set(shared ${files})
list(FILTER shared EXCLUDE REGEX "AdjustmentPanelsQt6|-qt6(/|\\.|$)")
if(QT_VERSION EQUAL 5)
    list(REMOVE_ITEM files ${shared})
    set(shared ${files})
endif()
if(shared)
    message(FATAL_ERROR "Installed under names that may be the other Qt's: ${shared}")
endif()

# ---- All libraries ----
set(consumer ${WORK_DIR}/consumer)
if(QT_VERSION EQUAL 5) # the headers for one Qt: what they include of Qt's is the same
    set(headers -D HEADERS=ON)
endif()
run("Configure a program" ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR}/consumer -B ${consumer} -D PANELS=${NAME}
    -D SOURCES=${SOURCE_DIR} ${headers})
run("Build it, the headers, and the code of the documents" ${CMAKE_COMMAND} --build ${consumer})
run("Run it" ${consumer}/consumer)

# With Qt 5, the test of the Debian packages does it.
if(QT_VERSION EQUAL 6)
    set(examples ${SOURCE_DIR}/examples)
    set(recipes ${prefix}/share/adjustment-panels${SUFFIX}/recipes)
    include(${CMAKE_CURRENT_LIST_DIR}/examples.cmake)
endif()

# ---- Without CMake ----
find_program(PKG_CONFIG pkg-config REQUIRED)
file(GLOB folder ${prefix}/lib*/pkgconfig)
set(ENV{PKG_CONFIG_PATH} ${folder})
run("Ask for the flags" ${PKG_CONFIG} --cflags --libs ${NAME}Kit ${NAME}Adjustments)
separate_arguments(flags UNIX_COMMAND "${output}")
cmake_path(GET folder PARENT_PATH lib)
file(GLOB sources ${CMAKE_CURRENT_LIST_DIR}/consumer/*.cpp)
run("Build the program without CMake" ${CXX_COMPILER} -std=c++17 ${sources} -o ${WORK_DIR}/plain ${flags} -Wl,-rpath,${lib})
run("Run that" ${WORK_DIR}/plain)

# ---- Another host: ours as it is installed, or another's widgets over our image ----
include(${CMAKE_CURRENT_LIST_DIR}/../boundary/stub.cmake)
set(document ${SOURCE_DIR}/docs/host-boundary.md)
boundary_headers(${document} ${WORK_DIR}/asked "Widgets and settings" "Files" "Image" "Kernels" "Analysis")
file(GLOB headers RELATIVE ${WORK_DIR}/asked ${WORK_DIR}/asked/*.h)
foreach(header IN LISTS headers)
    if(NOT EXISTS ${prefix}/include/${NAME}/${header})
        message(SEND_ERROR "The panels need ${header}, which is not installed")
    endif()
endforeach()
boundary_headers(${document} ${WORK_DIR}/widgets "Widgets and settings" "Files")
boundary_package(${WORK_DIR} OwnWidgets "include(CMakeFindDependencyMacro)
find_dependency(${NAME}Host COMPONENTS ImagingLib)
add_library(AdjustmentPanels::Host INTERFACE IMPORTED)
target_include_directories(AdjustmentPanels::Host INTERFACE \"${WORK_DIR}/widgets\")")

# The core, for which moc waits, and a few of the panels. All of them are compiled by the test of the boundary.
set(some "")
if(GENERATOR STREQUAL "Ninja") # which has a target for each file
    set(some --target src/CMakeFiles/AdjustmentPanelsPanels.dir/Unity/unity_0_cxx.cxx.o)
endif()
foreach(host ${NAME}Host OwnWidgets)
    run("Configure the panels for ${host}" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/for${host}
        -D ADJUSTMENT_PANELS_QT=${QT_VERSION} -D ADJUSTMENT_PANELS_HOST_PACKAGE=${host} -D OwnWidgets_DIR=${WORK_DIR}
        -D ADJUSTMENT_PANELS_BULK=ON -D BUILD_SHARED_LIBS=OFF
        -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=-DHWY_COMPILE_ONLY_STATIC) # nobody runs it
    run("Compile some of them" ${CMAKE_COMMAND} --build ${WORK_DIR}/for${host} ${some})
endforeach()
