# What every target of this project has in common.

# With these two settings build folders share what they compile.
if(VELMORA_USE_CCACHE)
    find_program(VELMORA_CCACHE ccache)
    mark_as_advanced(VELMORA_CCACHE)
    if(VELMORA_CCACHE)
        set(VELMORA_COMPILER_LAUNCHER
            "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${VELMORA_CCACHE}"
        )
    endif()
endif()

# ccache keeps nothing of what is compiled with a precompiled header.
set(VELMORA_PRECOMPILES OFF)
if(VELMORA_PRECOMPILE_HEADERS AND NOT VELMORA_COMPILER_LAUNCHER)
    set(VELMORA_PRECOMPILES ON)
endif()

# Nearly all that is built links with Qt, which takes mold a fraction of the time.
set(VELMORA_LINKER_OPTION "")
if(VELMORA_USE_MOLD)
    find_program(VELMORA_MOLD mold)
    mark_as_advanced(VELMORA_MOLD)
    include(CheckLinkerFlag)
    if(VELMORA_MOLD)
        check_linker_flag(CXX -fuse-ld=mold VELMORA_COMPILER_KNOWS_MOLD)
    endif()
    if(VELMORA_COMPILER_KNOWS_MOLD)
        set(VELMORA_LINKER_OPTION -fuse-ld=mold)
    endif()
endif()

# C++17, no Qt keywords, high warnings for our own code. Errors only on request, never for an embedding project.
function(velmora_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        AUTOMOC ON
        UNITY_BUILD OFF # sources have file-wide names of their own that others have too
    )
    if(VELMORA_COMPILER_LAUNCHER)
        set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER "${VELMORA_COMPILER_LAUNCHER}")
    endif()
    target_link_options(${target} PRIVATE ${VELMORA_LINKER_OPTION})
    target_compile_definitions(${target} PRIVATE
        QT_NO_KEYWORDS
        QT_NO_CAST_TO_ASCII
        QT_NO_URL_CAST_FROM_STRING
        QT_DEPRECATED_WARNINGS
    )
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /utf-8 /permissive-)
    else()
        target_compile_options(${target} PRIVATE
            -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion # sign: Qt's containers count in int
            -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
        )
    endif()
    if(VELMORA_WARNINGS_AS_ERRORS)
        target_compile_options(${target} PRIVATE $<IF:$<CXX_COMPILER_ID:MSVC>,/WX,-Werror>)
    endif()
endfunction()
