# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Compiler settings of every target of this tree; not exported to those who embed the panels.
add_library(adjustment_panels_settings INTERFACE)
target_compile_options(adjustment_panels_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    $<$<BOOL:${ADJUSTMENT_PANELS_WERROR}>:-Werror>)
target_compile_definitions(adjustment_panels_settings INTERFACE
    QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
if(ADJUSTMENT_PANELS_SANITIZE)
    # Not "enum": QDataStream puts any byte of a hostile record into the enumeration of a QColor, whose inline copy
    # constructor then counts as ours. Our own enumerations that a stream can fill have a fixed type.
    target_compile_options(adjustment_panels_settings INTERFACE
        -fsanitize=${ADJUSTMENT_PANELS_SANITIZE} -fno-sanitize=enum -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(adjustment_panels_settings INTERFACE -fsanitize=${ADJUSTMENT_PANELS_SANITIZE})
endif()

# adjustment_panels_library(<name> EXPORT_SET <set> SOURCES <file>... HEADERS <file>...
#                           PUBLIC <target>... [PRIVATE <target>...])
#
# A shared library with the alias AdjustmentPanels::<name>, its own export header (<name in lower case>_export.h),
# moc and uic, hidden visibility. HEADERS are installed and then included by their plain names.
function(adjustment_panels_library name)
    cmake_parse_arguments(ARG "" "EXPORT_SET" "SOURCES;HEADERS;PUBLIC;PRIVATE" ${ARGN})
    include(GenerateExportHeader)
    add_library(${name} SHARED ${ARG_SOURCES} ${ARG_HEADERS})
    add_library(AdjustmentPanels::${name} ALIAS ${name})
    set_target_properties(${name} PROPERTIES
        AUTOMOC ON AUTOUIC ON AUTORCC ON
        VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    string(TOLOWER ${name} lower)
    generate_export_header(${name} EXPORT_FILE_NAME ${CMAKE_CURRENT_BINARY_DIR}/${lower}_export.h)
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
        $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/AdjustmentPanels>)
    target_compile_features(${name} PUBLIC cxx_std_17)
    target_link_libraries(${name}
        PUBLIC ${ARG_PUBLIC}
        PRIVATE ${ARG_PRIVATE} $<BUILD_INTERFACE:adjustment_panels_settings>)
    install(TARGETS ${name} EXPORT ${ARG_EXPORT_SET}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(FILES ${ARG_HEADERS} ${CMAKE_CURRENT_BINARY_DIR}/${lower}_export.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/AdjustmentPanels)
endfunction()

# adjustment_panels_kernels(<file>...)
#
# How pixel kernels are compiled. They are useless unoptimised, so development and sanitizer builds keep them usable too; the
# optimised builds have their own level. Colour formulas give the same bytes on every instruction set only if no
# multiplication is fused with an addition.
function(adjustment_panels_kernels)
    set_source_files_properties(${ARGN} PROPERTIES
        COMPILE_OPTIONS "$<$<CONFIG:Debug>:-O2>;$<$<NOT:$<CONFIG:Debug>>:-O3>;-ffp-contract=off")
endfunction()
