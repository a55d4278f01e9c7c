# Which Qt this is built for, and what is named after it.

include_guard()

set(VELMORA_QT 5 CACHE STRING "The Qt to build for: 5 or 6")
set_property(CACHE VELMORA_QT PROPERTY STRINGS 5 6)

if(VELMORA_QT EQUAL 5)
    set(VELMORA_QT_VERSION 5.15)
    set(VELMORA_NAME Velmora) # of the library's file and of the CMake package
    set(VELMORA_SUFFIX "")    # of folders and packages, so that both can be installed side by side
elseif(VELMORA_QT EQUAL 6)
    set(VELMORA_QT_VERSION 6.4)
    set(VELMORA_NAME VelmoraQt6)
    set(VELMORA_SUFFIX "-qt6")
else()
    message(FATAL_ERROR "VELMORA_QT is \"${VELMORA_QT}\", and must be 5 or 6.")
endif()

# One program cannot hold two Qts: told here, where the reason can be named.
math(EXPR other_qt "11 - ${VELMORA_QT}")
if(NOT PROJECT_IS_TOP_LEVEL AND TARGET Qt${other_qt}::Core AND NOT TARGET Qt${VELMORA_QT}::Core)
    message(FATAL_ERROR
        "This program uses Qt ${other_qt}, and Velmora is to be built for Qt ${VELMORA_QT}. "
        "Write set(VELMORA_QT ${other_qt}) before add_subdirectory(), or configure with -DVELMORA_QT=${other_qt}."
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
