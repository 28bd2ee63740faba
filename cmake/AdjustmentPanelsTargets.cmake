# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT
include(GenerateExportHeader)

# Compiler settings of every target of this tree; not exported to those who embed the panels.
add_library(adjustment_panels_settings INTERFACE)
target_compile_options(adjustment_panels_settings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    $<$<BOOL:${ADJUSTMENT_PANELS_WERROR}>:-Werror>)
target_compile_definitions(adjustment_panels_settings INTERFACE
    QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING QT_NO_FOREACH QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
if(ADJUSTMENT_PANELS_QT EQUAL 6)
    # What it calls outdated is what Qt 5.15 has, mostly: warnings from 6.0 on would ask for two sources.
    target_compile_definitions(adjustment_panels_settings INTERFACE QT_DEPRECATED_WARNINGS_SINCE=0x050f00)
endif()
if(ADJUSTMENT_PANELS_SANITIZE)
    # Not "enum": QDataStream puts any byte of a hostile record into the enumeration of a QColor, whose inline copy
    # constructor then counts as ours. Our own enumerations that a stream can fill have a fixed type.
    target_compile_options(adjustment_panels_settings INTERFACE
        -fsanitize=${ADJUSTMENT_PANELS_SANITIZE} -fno-sanitize=enum -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(adjustment_panels_settings INTERFACE -fsanitize=${ADJUSTMENT_PANELS_SANITIZE})
endif()

if(ADJUSTMENT_PANELS_FUZZER)
    # All code tells the fuzzer where it goes; the loop that asks for inputs is linked to the targets alone.
    target_compile_options(adjustment_panels_settings INTERFACE -fsanitize=fuzzer-no-link)
    target_link_options(adjustment_panels_settings INTERFACE -fsanitize=fuzzer-no-link)
endif()

# adjustment_panels_bulk(<target>)
#
# Compiles its sources a dozen at a time, each of which then parses the headers for all: a third of the time. Their anonymous
# namespaces become one, so that no two may give another thing the same name there. Kernels stay by themselves.
function(adjustment_panels_bulk target)
    if(ADJUSTMENT_PANELS_BULK)
        set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 12)
    endif()
endfunction()

# What is incompatible has another soname, by the package's rule (SameMinorVersion): every 0.x until 1.0.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(ADJUSTMENT_PANELS_SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
else()
    set(ADJUSTMENT_PANELS_SOVERSION ${PROJECT_VERSION_MAJOR})
endif()

# adjustment_panels_library(<name> EXPORT_SET <set> SOURCES <file>... HEADERS <file>...
#                           PUBLIC <target>... [PRIVATE <target>...]
#                           [INCLUDE <folder>...] [FORMS <folder>] [OUTPUT_NAME <file name>]
#                           [COMPONENT <component>])
#
# A library with the target AdjustmentPanels::<name>, the file name ${ADJUSTMENT_PANELS_NAME}<name>, its own export header
# (HB<name>Export.h, with HB_<NAME>_EXPORT), moc, hidden visibility. HEADERS are installed and then included by their plain
# names.
# INCLUDE: folders besides its own whose headers are included by their plain names within this build.
# FORMS: where the forms lie that its sources include; without it, uic is not run.
# COMPONENT: the part of the installation that the shared library belongs to, core or panels (the default); all else of it
# belongs to dev.
#
# Everything links to AdjustmentPanels::<name>: plain names would collide with those of a project around this one.
function(adjustment_panels_library name)
    cmake_parse_arguments(ARG "" "EXPORT_SET;FORMS;OUTPUT_NAME;COMPONENT" "SOURCES;HEADERS;PUBLIC;PRIVATE;INCLUDE" ${ARGN})
    set(target AdjustmentPanels${name})
    if(NOT ARG_OUTPUT_NAME)
        set(ARG_OUTPUT_NAME ${ADJUSTMENT_PANELS_NAME}${name})
    endif()
    if(NOT ARG_COMPONENT)
        set(ARG_COMPONENT panels)
    endif()
    add_library(${target} ${ARG_SOURCES} ${ARG_HEADERS})
    add_library(AdjustmentPanels::${name} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        AUTOMOC ON
        EXPORT_NAME ${name}
        OUTPUT_NAME ${ARG_OUTPUT_NAME}
        VERSION ${PROJECT_VERSION} SOVERSION ${ADJUSTMENT_PANELS_SOVERSION})
    if(ARG_FORMS)
        set_target_properties(${target} PROPERTIES AUTOUIC ON AUTOUIC_SEARCH_PATHS ${ARG_FORMS})
    endif()
    if(ARG_SOURCES MATCHES "\\.qrc")
        set_target_properties(${target} PROPERTIES AUTORCC ON)
    endif()

    string(TOUPPER ${name} upper)
    set(static_define HB_${upper}_STATIC_DEFINE)
    set(export_header ${CMAKE_CURRENT_BINARY_DIR}/HB${name}Export.h)
    # For a class that others are likely to have too: a tag in the names of its symbols. A macro, as lupdate does not know
    # what a class is called behind attributes.
    set(own_name "#ifndef ADJUSTMENT_PANELS_OWN_NAME
#  define ADJUSTMENT_PANELS_OWN_NAME __attribute__((abi_tag(\"AdjustmentPanels\")))
#endif")
    generate_export_header(${target} BASE_NAME ${name} PREFIX_NAME HB_ EXPORT_FILE_NAME ${export_header}
        CUSTOM_CONTENT_FROM_VARIABLE own_name)
    foreach(folder IN ITEMS ${CMAKE_CURRENT_SOURCE_DIR} ${CMAKE_CURRENT_BINARY_DIR} ${ARG_INCLUDE})
        target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${folder}>)
    endforeach()
    target_include_directories(${target} PUBLIC $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/${ADJUSTMENT_PANELS_NAME}>)
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_link_libraries(${target} PUBLIC ${ARG_PUBLIC} PRIVATE $<BUILD_INTERFACE:adjustment_panels_settings>)

    list(TRANSFORM ARG_HEADERS PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/ REGEX "^[^/]")
    set_property(GLOBAL APPEND PROPERTY ADJUSTMENT_PANELS_HEADERS ${ARG_HEADERS})
    set_property(GLOBAL APPEND PROPERTY ADJUSTMENT_PANELS_LIBRARIES ${target})

    get_target_property(type ${target} TYPE)
    if(type STREQUAL "STATIC_LIBRARY")
        target_compile_definitions(${target} PUBLIC ${static_define})
        target_link_libraries(${target} PRIVATE ${ARG_PRIVATE})
    else()
        # Who links the library needs none of what it links for itself, but finds our own packages and Qt's anyway.
        foreach(item IN LISTS ARG_PRIVATE)
            if(NOT item MATCHES "^(AdjustmentPanels|${QT})::")
                set(item $<BUILD_INTERFACE:${item}>)
            endif()
            target_link_libraries(${target} PRIVATE ${item})
        endforeach()
        # An application's class that bears the name of one of ours must not take its place in here. For that, addresses of
        # our functions and tables must be the same inside and outside, which code for fixed addresses would break.
        target_link_options(${target} PRIVATE -Wl,-Bsymbolic)
        target_compile_options(${target} INTERFACE -fPIC)
        if(NOT ADJUSTMENT_PANELS_SANITIZE) # its run-time library is linked to programs only
            target_link_options(${target} PRIVATE -Wl,-z,defs)
        endif()
    endif()

    if(ADJUSTMENT_PANELS_INSTALL)
        install(TARGETS ${target} EXPORT ${ARG_EXPORT_SET}
            ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
            LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${ARG_COMPONENT} NAMELINK_COMPONENT dev
            RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${ARG_COMPONENT})
        install(FILES ${ARG_HEADERS} ${export_header}
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${ADJUSTMENT_PANELS_NAME} COMPONENT dev)
        adjustment_panels_pkgconfig(${ARG_OUTPUT_NAME}
            TYPE ${type} STATIC_DEFINE ${static_define} PUBLIC ${ARG_PUBLIC} PRIVATE ${ARG_PRIVATE})
    endif()
endfunction()

# adjustment_panels_pkgconfig(<name> [TYPE <type of library>] [STATIC_DEFINE <macro>]
#                             PUBLIC <target>... [PRIVATE <target>...])
#
# Installs <name>.pc, for those who do not build with CMake. Without TYPE it only requires others.
function(adjustment_panels_pkgconfig name)
    if(ADJUSTMENT_PANELS_HOST_PACKAGE)
        return() # that host's own description is not ours to name
    endif()
    cmake_parse_arguments(ARG "" "TYPE;STATIC_DEFINE" "PUBLIC;PRIVATE" ${ARGN})
    set(static FALSE)
    if(ARG_TYPE STREQUAL "STATIC_LIBRARY")
        set(static TRUE)
        list(APPEND ARG_PUBLIC ${ARG_PRIVATE})
    endif()
    set(requires "")
    foreach(item IN LISTS ARG_PUBLIC)
        if(item STREQUAL "AdjustmentPanels::Panels")
            list(APPEND requires ${ADJUSTMENT_PANELS_NAME})
        elseif(item STREQUAL "hwy::hwy")
            list(APPEND requires libhwy)
        elseif(item STREQUAL "LCMS2::LCMS2")
            list(APPEND requires lcms2)
        else()
            string(REPLACE "AdjustmentPanels::" ${ADJUSTMENT_PANELS_NAME} module ${item})
            string(REPLACE "::" "" module ${module})
            list(APPEND requires ${module})
        endif()
    endforeach()
    list(REMOVE_DUPLICATES requires)
    list(JOIN requires " " requires)

    file(RELATIVE_PATH prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
    string(REGEX REPLACE "/$" "" prefix ${prefix})
    set(text "prefix=\${pcfiledir}/${prefix}\n\nName: ${name}\nDescription: ${PROJECT_DESCRIPTION}\n")
    string(APPEND text "Version: ${PROJECT_VERSION}\nRequires: ${requires}\n")
    if(ARG_TYPE)
        string(APPEND text "Cflags: -I\${prefix}/${CMAKE_INSTALL_INCLUDEDIR}/${ADJUSTMENT_PANELS_NAME} -fPIC")
        if(static)
            string(APPEND text " -D${ARG_STATIC_DEFINE}")
        endif()
        string(APPEND text "\nLibs: -L\${prefix}/${CMAKE_INSTALL_LIBDIR} -l${name}\n")
    endif()
    file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc CONTENT "${text}" @ONLY)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
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
