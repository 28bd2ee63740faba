# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Compiles the panels and the core for a host that is nothing but the declarations of docs/host-boundary.md, and then our
# widgets for an image that is. They are static libraries, which nobody links.
cmake_minimum_required(VERSION 3.21)
include(${CMAKE_CURRENT_LIST_DIR}/../RunStep.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/stub.cmake)

set(document ${SOURCE_DIR}/docs/host-boundary.md)
boundary_headers(${document} ${WORK_DIR}/stub "Widgets and settings" "Files" "Image" "Kernels" "Analysis")

# Nothing stands there for nobody: each header is included by the panels, the core, a form, or another one on the list.
file(GLOB headers RELATIVE ${WORK_DIR}/stub ${WORK_DIR}/stub/*.h)
file(GLOB_RECURSE users_of_host ${SOURCE_DIR}/include/*.h ${SOURCE_DIR}/src/*.h ${SOURCE_DIR}/src/*.cpp
    ${SOURCE_DIR}/adjustments/*.h ${SOURCE_DIR}/adjustments/*.cpp ${SOURCE_DIR}/forms/*.ui)
file(GLOB_RECURSE users ${WORK_DIR}/stub/*.h)
list(APPEND users ${users_of_host})
set(all "")
foreach(file IN LISTS users)
    file(STRINGS ${file} lines REGEX "#include|<header")
    string(APPEND all "${lines}\n")
endforeach()
foreach(header IN LISTS headers)
    if(NOT all MATCHES "[<>\"/]${header}[<>\"]")
        message(SEND_ERROR "${document}: nobody includes ${header}")
    endif()
endforeach()

boundary_uses(${document} ${WORK_DIR}/stub FILES ${users_of_host} UNNAMED
    paint          # has no body in QGraphicsItem
    setFuture      # is Qt's, in the body of a template
    work           # is a parameter, in the body of another
    HBChannelNorms # goes from a look at a picture to HBCorrectCast, and has no variable
)

boundary_package(${WORK_DIR} StubHost "add_library(AdjustmentPanels::Host INTERFACE IMPORTED)
target_include_directories(AdjustmentPanels::Host INTERFACE \"${WORK_DIR}/stub\")")
set(options -D ADJUSTMENT_PANELS_QT=${QT_VERSION} -D ADJUSTMENT_PANELS_BULK=ON -D BUILD_SHARED_LIBS=OFF -D CMAKE_BUILD_TYPE=Debug
    -D "CMAKE_CXX_FLAGS_DEBUG=-w -DHWY_COMPILE_ONLY_STATIC") # declared for nobody to define or run
run("Configure" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build ${options}
    -D ADJUSTMENT_PANELS_HOST_PACKAGE=StubHost -D StubHost_DIR=${WORK_DIR})
run("Compile" ${CMAKE_COMMAND} --build ${WORK_DIR}/build --target AdjustmentPanelsAdjustments AdjustmentPanelsPanels)

boundary_headers(${document} ${WORK_DIR}/image "Image" "Kernels" "Analysis")
boundary_headers(${document} ${WORK_DIR}/besides "Our widgets over your image")
file(GLOB_RECURSE users_of_image ${SOURCE_DIR}/host/*.h ${SOURCE_DIR}/host/*.cpp)
list(FILTER users_of_image EXCLUDE REGEX "/ImagingLib/")
boundary_uses(${document} ${WORK_DIR}/besides FILES ${users_of_image})
boundary_package(${WORK_DIR} StubImage "add_library(AdjustmentPanels::ImagingLib INTERFACE IMPORTED)
target_include_directories(AdjustmentPanels::ImagingLib INTERFACE \"${WORK_DIR}/besides\" \"${WORK_DIR}/image\")")
run("Configure our widgets" ${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/widgets ${options}
    -D ADJUSTMENT_PANELS_HOST_PACKAGE=StubImage -D StubImage_DIR=${WORK_DIR})
if(EXISTS ${WORK_DIR}/widgets/host/ImagingLib)
    message(FATAL_ERROR "Our image is built although another is there")
endif()
run("Compile our widgets" ${CMAKE_COMMAND} --build ${WORK_DIR}/widgets
    --target AdjustmentPanelsHostGuiLib AdjustmentPanelsHostView AdjustmentPanelsHostPluginLib)
