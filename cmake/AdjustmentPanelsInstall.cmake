# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Two packages: AdjustmentPanels (the panels) and, for the stand-alone host, AdjustmentPanelsHost. The first finds
# the second, or whatever package the panels were built against. For Qt 6: AdjustmentPanelsQt6, AdjustmentPanelsQt6Host.
include(CMakePackageConfigHelpers)

set(ADJUSTMENT_PANELS_HOST_DEPENDENCY "${ADJUSTMENT_PANELS_NAME}Host ${PROJECT_VERSION}") # another's has versions of its own
set(ADJUSTMENT_PANELS_IMAGING_DEPENDENCY "")
if(NOT ADJUSTMENT_PANELS_HAS_HOST)
    set(ADJUSTMENT_PANELS_HOST_DEPENDENCY ${ADJUSTMENT_PANELS_HOST_PACKAGE})
elseif(ADJUSTMENT_PANELS_HOST_PACKAGE)
    set(ADJUSTMENT_PANELS_IMAGING_DEPENDENCY "find_dependency(${ADJUSTMENT_PANELS_HOST_PACKAGE})")
endif()
# A static library is linked together with what it uses.
set(ADJUSTMENT_PANELS_STATIC_DEPENDENCIES "")
if(NOT BUILD_SHARED_LIBS)
    set(ADJUSTMENT_PANELS_STATIC_DEPENDENCIES "find_dependency(HWY 1.0)
list(PREPEND CMAKE_MODULE_PATH \"\${CMAKE_CURRENT_LIST_DIR}\")
find_dependency(LCMS2)
list(POP_FRONT CMAKE_MODULE_PATH)")
endif()
set(data_dir ${ADJUSTMENT_PANELS_DATADIR})

# adjustment_panels_package(<part> <export set>...): part is empty for the panels.
function(adjustment_panels_package part)
    set(name ${ADJUSTMENT_PANELS_NAME}${part})
    # Those for both versions of Qt define the same targets, in the folder that asks for them.
    set(ADJUSTMENT_PANELS_ONE_QT "if(AdjustmentPanels_QT AND NOT AdjustmentPanels_QT EQUAL ${ADJUSTMENT_PANELS_QT})
    set(${name}_FOUND FALSE)
    set(${name}_NOT_FOUND_MESSAGE \"The panels for Qt \${AdjustmentPanels_QT} are here already\")
    return()
endif()
set(AdjustmentPanels_QT ${ADJUSTMENT_PANELS_QT})")
    set(destination ${CMAKE_INSTALL_LIBDIR}/cmake/${name})
    configure_package_config_file(${CMAKE_CURRENT_SOURCE_DIR}/cmake/AdjustmentPanels${part}Config.cmake.in
        ${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake INSTALL_DESTINATION ${destination}
        PATH_VARS data_dir)
    write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake
        COMPATIBILITY SameMinorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake
        ${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake DESTINATION ${destination} COMPONENT dev)
    if(NOT BUILD_SHARED_LIBS)
        install(FILES ${CMAKE_CURRENT_SOURCE_DIR}/cmake/FindLCMS2.cmake DESTINATION ${destination} COMPONENT dev)
    endif()
    foreach(export_set IN LISTS ARGN)
        install(EXPORT ${export_set} NAMESPACE AdjustmentPanels:: DESTINATION ${destination} COMPONENT dev)
    endforeach()
endfunction()

adjustment_panels_package("" AdjustmentPanelsTargets)
if(ADJUSTMENT_PANELS_HAS_HOST AND ADJUSTMENT_PANELS_HOST_PACKAGE)
    adjustment_panels_package(Host AdjustmentPanelsHostTargets)
elseif(ADJUSTMENT_PANELS_HAS_HOST)
    adjustment_panels_package(Host AdjustmentPanelsImagingTargets AdjustmentPanelsHostTargets)
endif()

# The licence is a component of its own, because distributions have it in a form of theirs.
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR}${ADJUSTMENT_PANELS_SUFFIX} COMPONENT license)
if(NOT ADJUSTMENT_PANELS_SUFFIX) # else those for Qt 5 may stand beside these
    install(FILES README.md CHANGELOG.md CONTRIBUTING.md DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
    install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc
        FILES_MATCHING REGEX "\\.(md|png|jpg)$" PATTERN make EXCLUDE)
    install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT doc)
endif()
