# Which Qt this is built for, and what is named after it.

include_guard()

set(VELMORA_QT 5 CACHE STRING "The Qt to build for: 5 or 6")
set_property(CACHE VELMORA_QT PROPERTY STRINGS 5 6)

# So that both can be installed side by side; the kit for Qt 5 has the plain names.
if(VELMORA_QT EQUAL 5)
    set(VELMORA_QT_VERSION 5.15)
    set(VELMORA_QT_PACKAGE qtbase5-dev)
    set(VELMORA_NAME Velmora) # of the library's file and of the CMake package
    set(VELMORA_SUFFIX "")    # of folders and packages
    set(VELMORA_HEADERS_DIR "${CMAKE_INSTALL_INCLUDEDIR}")
    set(VELMORA_RUNTIME_PACKAGE libvelmora${PROJECT_VERSION_MAJOR})
    set(VELMORA_OTHER_QT 6)
    set(VELMORA_OTHER_SUFFIX -qt6)
    set(VELMORA_OTHER_HEADERS_DIR "${CMAKE_INSTALL_INCLUDEDIR}/velmora-qt6")
elseif(VELMORA_QT EQUAL 6)
    set(VELMORA_QT_VERSION 6.4)
    set(VELMORA_QT_PACKAGE qt6-base-dev)
    set(VELMORA_NAME VelmoraQt6)
    set(VELMORA_SUFFIX -qt6)
    set(VELMORA_HEADERS_DIR "${CMAKE_INSTALL_INCLUDEDIR}/velmora-qt6")
    set(VELMORA_RUNTIME_PACKAGE libvelmora-qt6-${PROJECT_VERSION_MAJOR})
    set(VELMORA_OTHER_QT 5)
    set(VELMORA_OTHER_SUFFIX "")
    set(VELMORA_OTHER_HEADERS_DIR "${CMAKE_INSTALL_INCLUDEDIR}")
else()
    message(FATAL_ERROR "VELMORA_QT is \"${VELMORA_QT}\", and must be 5 or 6.")
endif()
set(VELMORA_DESCRIPTION "A desktop user-interface kit on Qt ${VELMORA_QT} Widgets")

# One program cannot hold two Qts: told here, where the reason can be named.
if(NOT PROJECT_IS_TOP_LEVEL AND TARGET Qt${VELMORA_OTHER_QT}::Core AND NOT TARGET Qt${VELMORA_QT}::Core)
    message(FATAL_ERROR
        "This program uses Qt ${VELMORA_OTHER_QT}, and Velmora is to be built for Qt ${VELMORA_QT}. "
        "Write set(VELMORA_QT ${VELMORA_OTHER_QT}) before add_subdirectory(), or configure with -DVELMORA_QT=${VELMORA_OTHER_QT}."
    )
endif()

# velmora_find_qt(<component>...)
macro(velmora_find_qt)
    find_package(Qt${VELMORA_QT} ${VELMORA_QT_VERSION} REQUIRED COMPONENTS ${ARGN})
endmacro()

# velmora_add_resources(<variable> <qrc-file>...)
#
# Compressed with zlib: with another method the program would need a Qt that was built with it.
macro(velmora_add_resources variable)
    cmake_language(CALL qt${VELMORA_QT}_add_resources ${variable} ${ARGN} OPTIONS --compress-algo zlib)
endmacro()
