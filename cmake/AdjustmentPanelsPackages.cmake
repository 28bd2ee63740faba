# SPDX-FileCopyrightText: 2026 The Adjustment Panels authors
# SPDX-License-Identifier: MIT

# Debian packages, one for each component that something is installed for; `tools/package` builds them.
set(soname_version ${ADJUSTMENT_PANELS_SOVERSION})
set(maintainer "The Adjustment Panels authors <adjustment-panels@example.org>")
if(DEFINED ENV{DEBEMAIL}) # who packages is whom Debian's own tools take
    set(maintainer "$ENV{DEBFULLNAME} <$ENV{DEBEMAIL}>")
endif()
set(ADJUSTMENT_PANELS_PACKAGER "${maintainer}" CACHE STRING "Name <address> of who packages")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "${ADJUSTMENT_PANELS_PACKAGER}")
set(CPACK_PACKAGE_VENDOR "The Adjustment Panels authors")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # each package has its own
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE adjustment-panels)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY "=") # until 1.0 the insides of our libraries know each other
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Where the libraries lie that the programs are linked to.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "")
get_property(libraries GLOBAL PROPERTY ADJUSTMENT_PANELS_LIBRARIES)
foreach(target IN LISTS libraries)
    get_target_property(folder ${target} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
endforeach()

# The texts that Debian asks for, in share/doc/<package>. They belong to the packages alone.
find_program(GZIP gzip)
if(NOT GZIP)
    return() # not a system that such packages are built on
endif()
set(debian ${PROJECT_BINARY_DIR}/debian)
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
set(CPACK_DEBIAN_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
configure_file(packaging/debian/changelog.in ${debian}/changelog.Debian @ONLY)
configure_file(CHANGELOG.md ${debian}/changelog COPYONLY)
execute_process(COMMAND ${GZIP} -9nkf changelog changelog.Debian WORKING_DIRECTORY ${debian} COMMAND_ERROR_IS_FATAL ANY)

# adjustment_panels_debian(<component> PACKAGE <name> SECTION <section> DESCRIPTION <text> [ALL]
#                          [DEPENDS <component>...] [REQUIRES <Debian package>...] [RECOMMENDS <Debian package>...]
#                          [SUGGESTS <Debian package>...])
#
# The first line of the text is the synopsis; no semicolons. ALL: the same on every architecture. DEPENDS: of the same version.
function(adjustment_panels_debian component)
    cmake_parse_arguments(ARG "ALL" "PACKAGE;SECTION;DESCRIPTION" "DEPENDS;REQUIRES;RECOMMENDS;SUGGESTS" ${ARGN})
    get_cmake_property(components COMPONENTS)
    if(NOT component IN_LIST components)
        return()
    endif()
    string(TOUPPER ${component} upper)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${ARG_PACKAGE} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${ARG_SECTION} PARENT_SCOPE)
    set(CPACK_DEBIAN_${upper}_DESCRIPTION "${ARG_DESCRIPTION}" PARENT_SCOPE)
    list(JOIN ARG_REQUIRES ", " requires)
    set(CPACK_DEBIAN_${upper}_PACKAGE_DEPENDS "${requires}" PARENT_SCOPE)
    list(JOIN ARG_RECOMMENDS ", " recommends)
    set(CPACK_DEBIAN_${upper}_PACKAGE_RECOMMENDS "${recommends}" PARENT_SCOPE)
    list(JOIN ARG_SUGGESTS ", " suggests)
    set(CPACK_DEBIAN_${upper}_PACKAGE_SUGGESTS "${suggests}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${upper}_DEPENDS "${ARG_DEPENDS}" PARENT_SCOPE)
    if(ARG_ALL)
        set(CPACK_DEBIAN_${upper}_PACKAGE_ARCHITECTURE all PARENT_SCOPE)
    endif()
    install(FILES packaging/debian/copyright ${debian}/changelog.gz ${debian}/changelog.Debian.gz
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${ARG_PACKAGE} COMPONENT ${component} EXCLUDE_FROM_ALL)
    if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/debian/${component}.lintian-overrides)
        install(FILES packaging/debian/${component}.lintian-overrides RENAME ${ARG_PACKAGE}
            DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides COMPONENT ${component} EXCLUDE_FROM_ALL)
    endif()
endfunction()

# Those for Qt 6 stand beside those for Qt 5; documents and the type of recipes come with the latter alone.
set(qt6 "${ADJUSTMENT_PANELS_SUFFIX}")
if(qt6)
    set(qt6_dash -)
    set(qt_dev "qt6-base-dev (>= 6.4)")
    set(qt_formats qt6-image-formats-plugins)
    set(qt_texts qt6-translations-l10n)
    set(more_formats "")
    set(type_of_recipes adjustment-panels-data)
    set(data "texts
Translations of the panels and their programs.")
else()
    set(qt6_dash "")
    set(qt_dev "qtbase5-dev (>= 5.15)")
    set(qt_formats qt5-image-formats-plugins)
    set(qt_texts qttranslations5-l10n)
    set(more_formats kimageformat-plugins) # HEIC, AVIF, JPEG XL
    set(type_of_recipes "") # is there: the data depended on
    set(data "texts and file type
Translations of the panels and their programs, and the type of recipes
with its icon.")
endif()
adjustment_panels_debian(core
    PACKAGE libadjustmentpanels${qt6}-core${soname_version} SECTION libs DEPENDS data
    DESCRIPTION "photo adjustments without widgets - shared libraries
Adjustments of photos as a record and a function: twenty of them, tone,
colour, sign and watermark, on tiles that are shared among all cores and
may be more than the memory holds. No widget, no application object, any
thread.")
adjustment_panels_debian(panels
    PACKAGE libadjustmentpanels${qt6}${qt6_dash}${soname_version} SECTION libs DEPENDS core data
    RECOMMENDS ${qt_texts}
    DESCRIPTION "photo-adjustment panels for Qt - shared libraries
Each panel is one widget with its controls, its live preview, its stored
settings and its own background job. With the controls, the view and the
table of all panels.")
adjustment_panels_debian(dev
    PACKAGE libadjustmentpanels${qt6}-dev SECTION libdevel DEPENDS panels core
    REQUIRES ${qt_dev} RECOMMENDS cmake libadjustmentpanels-doc
    DESCRIPTION "photo-adjustment panels for Qt - development files
Headers, CMake packages and pkg-config files for programs that embed the
panels, or that adjust photos without.")
adjustment_panels_debian(doc
    PACKAGE libadjustmentpanels-doc SECTION doc ALL
    DESCRIPTION "photo-adjustment panels for Qt - documents and examples
How to embed the panels, what each of them does, and example programs
that build as they are.")
adjustment_panels_debian(data
    PACKAGE adjustment-panels${qt6}-data SECTION graphics ALL
    DESCRIPTION "photo-adjustment panels for Qt - ${data}")
adjustment_panels_debian(editor
    PACKAGE panel-editor${qt6} SECTION graphics DEPENDS panels core data
    RECOMMENDS ${qt_formats} ${qt_texts} ${type_of_recipes} panel-replay${qt6} SUGGESTS ${more_formats}
    DESCRIPTION "adjusts tone and colour of photos
Opens photos, adjusts them with twenty panels, whole or within a
selection, compares before with after, and saves them with their metadata
and colour profile, or what was done as a recipe for other photos.")
adjustment_panels_debian(replay
    PACKAGE panel-replay${qt6} SECTION graphics DEPENDS core data
    RECOMMENDS ${qt_formats} SUGGESTS ${more_formats}
    DESCRIPTION "applies stored adjustments to any number of photos
A command for recipes, as panel-editor saves them: to photos, folders and
lists, on one machine or many, with a journal, reports and bounds of time
and memory. Needs no display.")
adjustment_panels_debian(gimp
    PACKAGE gimp-adjustment-panels SECTION graphics DEPENDS panels core data
    REQUIRES "gimp (>= 2.10)"
    DESCRIPTION "photo-adjustment panels for GIMP
Adjusts the current layer within the selection, with live preview and
presets: twenty adjustments in the menu of colours, and procedures for
scripts.")

# The system's list of libraries is brought up to date once, behind all packages.
set(CPACK_DEBIAN_CORE_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)
set(CPACK_DEBIAN_PANELS_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/debian/triggers)

include(CPack)
