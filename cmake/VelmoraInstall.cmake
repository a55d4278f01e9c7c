# What `cmake --install` lays out: two components, Runtime (the library) and Development (everything a host compiles with).

# A project that has this one as a folder installs the first alone, unless it asks for both.

if(NOT VELMORA_INSTALL)
    install(TARGETS Velmora
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime NAMELINK_SKIP
        RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
    )
    return()
endif()

include(CMakePackageConfigHelpers)

set(VELMORA_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/${VELMORA_NAME}")

install(TARGETS Velmora EXPORT VelmoraTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Runtime NAMELINK_COMPONENT Development
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT Development
    RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT Runtime
)

# Flat: a host writes <Velmora/X.h>, whatever folder X lives in.
list(TRANSFORM VELMORA_PUBLIC_HEADERS PREPEND "${CMAKE_CURRENT_SOURCE_DIR}/" OUTPUT_VARIABLE headers)
install(FILES ${headers} "${VELMORA_INCLUDE_DIR}/Velmora/Velmora.h" "${VELMORA_INCLUDE_DIR}/Velmora/VelmoraExport.h"
    DESTINATION "${VELMORA_HEADERS_DIR}/Velmora"
    COMPONENT Development
)

install(EXPORT VelmoraTargets NAMESPACE Velmora:: DESTINATION "${VELMORA_CMAKE_DIR}" COMPONENT Development)
set(configured "${PROJECT_BINARY_DIR}/package")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/VelmoraConfig.cmake.in" "${configured}/${VELMORA_NAME}Config.cmake"
    INSTALL_DESTINATION "${VELMORA_CMAKE_DIR}"
    PATH_VARS VELMORA_TRANSLATIONS_DIR
    NO_SET_AND_CHECK_MACRO
    NO_CHECK_REQUIRED_COMPONENTS_MACRO
)
write_basic_package_version_file("${configured}/VelmoraVersion.cmake" COMPATIBILITY SameMajorVersion)
configure_file("${PROJECT_SOURCE_DIR}/cmake/VelmoraConfigVersion.cmake.in" "${configured}/${VELMORA_NAME}ConfigVersion.cmake" @ONLY)
install(FILES
    "${configured}/${VELMORA_NAME}Config.cmake"
    "${configured}/${VELMORA_NAME}ConfigVersion.cmake"
    "${configured}/VelmoraVersion.cmake"
    DESTINATION "${VELMORA_CMAKE_DIR}"
    COMPONENT Development
)
if(NOT VELMORA_NAME STREQUAL "Velmora")
    # CMake looks for a package in all folders whose names begin with its own: find_package(Velmora) comes here too.
    install(FILES "${PROJECT_SOURCE_DIR}/cmake/qt6/VelmoraConfig.cmake" "${PROJECT_SOURCE_DIR}/cmake/qt6/VelmoraConfigVersion.cmake"
        DESTINATION "${VELMORA_CMAKE_DIR}"
        COMPONENT Development
    )
endif()

# Relative to itself, so that the installed tree can be moved.
file(RELATIVE_PATH VELMORA_PC_TO_PREFIX "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
string(REGEX REPLACE "/$" "" VELMORA_PC_TO_PREFIX "${VELMORA_PC_TO_PREFIX}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/Velmora.pc.in" "${configured}/Velmora${VELMORA_SUFFIX}.pc" @ONLY)
install(FILES "${configured}/Velmora${VELMORA_SUFFIX}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT Development)
