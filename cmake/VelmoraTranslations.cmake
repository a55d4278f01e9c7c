# The kit's own texts in other languages: resources/translations/velmora_*.ts, compiled by lrelease.

include_guard()

option(VELMORA_BUILD_TRANSLATIONS "Compile the kit's own texts in other languages (needs lrelease)" ON)

# Qt's tool of that name, into VELMORA_<NAME>: the one beside its qmake, for one in the path may be another Qt's.
function(velmora_find_qt_tool name)
    string(TOUPPER "VELMORA_${name}" variable)
    get_target_property(qmake Qt${VELMORA_QT}::qmake IMPORTED_LOCATION)
    get_filename_component(tools "${qmake}" DIRECTORY)
    find_program(${variable} ${name} HINTS "${tools}" /usr/lib/qt${VELMORA_QT}/bin)
    mark_as_advanced(${variable})
endfunction()

# velmora_add_translations(<target> <ts-file>...)
#
# Compiles the files into a folder `translations` beside the library <target>, where it looks for them, and installs them to
# share/velmora/translations, where it looks too. velmora.qm is English, for languages that are not among them.
function(velmora_add_translations target)
    velmora_find_qt_tool(lrelease)
    if(NOT VELMORA_LRELEASE)
        set(package qttools5-dev-tools)
        if(VELMORA_QT EQUAL 6)
            set(package qt6-l10n-tools)
        endif()
        message(FATAL_ERROR
            "The kit's texts in other languages cannot be compiled: there is no lrelease. Either install it (Debian: "
            "apt install ${package}), or configure with -DVELMORA_BUILD_TRANSLATIONS=OFF."
        )
    endif()
    set(compiled_dir "${CMAKE_CURRENT_BINARY_DIR}/qm")
    file(MAKE_DIRECTORY "${compiled_dir}")
    set(compiled "")
    foreach(ts IN LISTS ARGN)
        get_filename_component(name "${ts}" NAME_WE)
        set(names "${name}")
        if(name STREQUAL "velmora_en")
            list(APPEND names velmora)
        endif()
        foreach(name IN LISTS names)
            add_custom_command(
                OUTPUT "${compiled_dir}/${name}.qm"
                COMMAND "${VELMORA_LRELEASE}" -silent "${ts}" -qm "${compiled_dir}/${name}.qm"
                DEPENDS "${ts}"
                VERBATIM
            )
            list(APPEND compiled "${compiled_dir}/${name}.qm")
        endforeach()
    endforeach()

    set(beside "$<TARGET_FILE_DIR:${target}>/translations")
    set(stamp "${compiled_dir}/$<CONFIG>.stamp")
    add_custom_command(
        OUTPUT "${stamp}"
        COMMAND "${CMAKE_COMMAND}" -E make_directory "${beside}"
        COMMAND "${CMAKE_COMMAND}" -E copy ${compiled} "${beside}"
        COMMAND "${CMAKE_COMMAND}" -E touch "${stamp}"
        DEPENDS ${compiled}
        COMMENT "Compiling the texts in other languages"
        VERBATIM
    )
    add_custom_target(${target}Translations DEPENDS "${stamp}")
    add_dependencies(${target} ${target}Translations)
    if(VELMORA_INSTALL_RUNTIME)
        install(FILES ${compiled} DESTINATION "${VELMORA_TRANSLATIONS_DIR}" COMPONENT Runtime)
    endif()
endfunction()

# velmora_add_translations_update(<target> INCLUDES dir... SOURCES dir... FILES ts-file...)
#
# Makes <target>, which brings the texts of the sources into the files and takes those out that are gone. What is new there, a
# translator writes; a test tells what is wanting.
function(velmora_add_translations_update target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "INCLUDES;SOURCES;FILES")
    list(TRANSFORM arg_INCLUDES PREPEND -I)
    velmora_find_qt_tool(lupdate)
    if(VELMORA_LUPDATE)
        add_custom_target(${target}
            COMMAND "${VELMORA_LUPDATE}" -silent -no-obsolete -locations none ${arg_INCLUDES} ${arg_SOURCES} -ts ${arg_FILES}
            VERBATIM
        )
    endif()
endfunction()
