# The two fonts of the resource bundle. No font file is in the repository: Roboto Bold comes from a package,
# Open Sans Medium is drawn at build time from two packaged cuts, or both come from a folder of the builder's.

include_guard()

set(VELMORA_FONT_DIR "" CACHE PATH
    "Folder with Roboto-Bold.ttf and OpenSans-Medium.ttf; empty: use the system's packages")

# Sets VELMORA_FONTFORGE_PYTHON to an interpreter that can import fontforge. The first python3 in PATH is often
# one that knows nothing of the system's packages, so several are tried.
function(_velmora_find_fontforge_python)
    if(VELMORA_FONTFORGE_PYTHON AND EXISTS "${VELMORA_FONTFORGE_PYTHON}")
        return()
    endif()
    set(found "VELMORA_FONTFORGE_PYTHON-NOTFOUND")
    find_program(python_in_path python3 NO_CACHE)
    foreach(candidate IN ITEMS /usr/bin/python3 "${python_in_path}" /usr/local/bin/python3)
        if(NOT EXISTS "${candidate}")
            continue()
        endif()
        execute_process(COMMAND "${candidate}" -c "import fontforge" RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
        if(result EQUAL 0)
            set(found "${candidate}")
            break()
        endif()
    endforeach()
    set(VELMORA_FONTFORGE_PYTHON "${found}" CACHE FILEPATH "Python 3 interpreter that can import fontforge" FORCE)
endfunction()

# One line for each thing the fonts' making lacks, into the variable `missing_var`.
function(_velmora_find_packaged_fonts missing_var)
    find_file(VELMORA_ROBOTO_BOLD Roboto-Bold.ttf
        PATHS /usr/share/fonts/truetype /usr/local/share/fonts/truetype
        PATH_SUFFIXES roboto/unhinted/RobotoTTF
        NO_DEFAULT_PATH
    )
    foreach(cut IN ITEMS Regular Semibold)
        string(TOUPPER "VELMORA_OPEN_SANS_${cut}" variable)
        find_file(${variable} OpenSans-${cut}.ttf
            PATHS /usr/share/fonts/truetype /usr/local/share/fonts/truetype
            PATH_SUFFIXES open-sans
            NO_DEFAULT_PATH
        )
    endforeach()
    mark_as_advanced(VELMORA_ROBOTO_BOLD VELMORA_OPEN_SANS_REGULAR VELMORA_OPEN_SANS_SEMIBOLD)
    _velmora_find_fontforge_python()
    mark_as_advanced(VELMORA_FONTFORGE_PYTHON)

    set(missing "")
    if(NOT VELMORA_ROBOTO_BOLD)
        string(APPEND missing "  Roboto-Bold.ttf (package fonts-roboto-unhinted)\n")
    endif()
    if(NOT VELMORA_OPEN_SANS_REGULAR OR NOT VELMORA_OPEN_SANS_SEMIBOLD)
        string(APPEND missing "  OpenSans-Regular.ttf and OpenSans-Semibold.ttf (package fonts-open-sans)\n")
    endif()
    if(NOT VELMORA_FONTFORGE_PYTHON)
        string(APPEND missing "  a Python 3 that can import fontforge (package python3-fontforge)\n")
    endif()
    set(${missing_var} "${missing}" PARENT_SCOPE)
endfunction()

# velmora_provide_fonts(<out-dir>)
#
# Provides <out-dir>/fonts.qrc now, and the two files that it names, in <out-dir>/fonts, when the project is
# built. Call it in the folder whose target compiles the bundle:
#
#     velmora_provide_fonts("${CMAKE_CURRENT_BINARY_DIR}/resources")
#     velmora_add_resources(bundle "${CMAKE_CURRENT_BINARY_DIR}/resources/fonts.qrc")
#
# The fonts' licences are installed to share/doc/velmora, or velmora-qt6.
function(velmora_provide_fonts out_dir)
    set(roboto "${out_dir}/fonts/Roboto-Bold.ttf")
    set(open_sans "${out_dir}/fonts/OpenSans-Medium.ttf")
    configure_file("${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../resources/fonts.qrc" "${out_dir}/fonts.qrc" COPYONLY)
    file(MAKE_DIRECTORY "${out_dir}/fonts")

    if(VELMORA_FONT_DIR)
        _velmora_copy_font("${VELMORA_FONT_DIR}/Roboto-Bold.ttf" "${roboto}")
        _velmora_copy_font("${VELMORA_FONT_DIR}/OpenSans-Medium.ttf" "${open_sans}")
        _velmora_install_licences_of_folder("${VELMORA_FONT_DIR}")
        return()
    endif()

    _velmora_find_packaged_fonts(missing)
    if(missing)
        message(FATAL_ERROR
            "The fonts of the resource bundle cannot be made. Missing:\n${missing}"
            "Either install the packages (Debian: apt install fonts-roboto-unhinted fonts-open-sans python3-fontforge), "
            "or configure with -DVELMORA_FONT_DIR=<folder> naming a folder that holds Roboto-Bold.ttf and OpenSans-Medium.ttf."
        )
    endif()
    _velmora_copy_font("${VELMORA_ROBOTO_BOLD}" "${roboto}")
    set(script "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/../scripts/make_fonts.py")
    add_custom_command(
        OUTPUT "${open_sans}"
        COMMAND "${VELMORA_FONTFORGE_PYTHON}" "${script}"
            "${VELMORA_OPEN_SANS_REGULAR}" "${VELMORA_OPEN_SANS_SEMIBOLD}" "${open_sans}"
        DEPENDS "${script}" "${VELMORA_OPEN_SANS_REGULAR}" "${VELMORA_OPEN_SANS_SEMIBOLD}"
        COMMENT "Drawing OpenSans-Medium.ttf"
        VERBATIM
    )
    _velmora_install_licence_of_package(fonts-roboto-unhinted)
    _velmora_install_licence_of_package(fonts-open-sans)
endfunction()

function(_velmora_copy_font source target)
    get_filename_component(name "${source}" NAME)
    if(NOT EXISTS "${source}")
        message(FATAL_ERROR
            "${source} does not exist. VELMORA_FONT_DIR must name a folder that holds Roboto-Bold.ttf and "
            "OpenSans-Medium.ttf; without it (-UVELMORA_FONT_DIR) the system's packages are used."
        )
    endif()
    add_custom_command(
        OUTPUT "${target}"
        COMMAND "${CMAKE_COMMAND}" -E copy "${source}" "${target}"
        DEPENDS "${source}"
        COMMENT "Copying ${name}"
        VERBATIM
    )
endfunction()

function(_velmora_install_licence_of_package package)
    if(NOT VELMORA_INSTALL_RUNTIME)
        return()
    endif()
    set(copyright "/usr/share/doc/${package}/copyright")
    if(EXISTS "${copyright}")
        install(FILES "${copyright}"
            DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/velmora${VELMORA_SUFFIX}"
            RENAME "copyright.${package}"
            COMPONENT Runtime
        )
    else()
        message(WARNING "${copyright} does not exist: the licence of ${package} will not be installed.")
    endif()
endfunction()

function(_velmora_install_licences_of_folder folder)
    if(NOT VELMORA_INSTALL_RUNTIME)
        return()
    endif()
    file(GLOB licences LIST_DIRECTORIES false
        "${folder}/LICENSE*" "${folder}/LICENCE*" "${folder}/OFL*" "${folder}/copyright*")
    if(licences)
        install(FILES ${licences} DESTINATION "${CMAKE_INSTALL_DATAROOTDIR}/doc/velmora${VELMORA_SUFFIX}" COMPONENT Runtime)
    else()
        message(WARNING "${folder} holds no licence text (LICENSE*, OFL*, copyright*) to install beside the library.")
    endif()
endfunction()
