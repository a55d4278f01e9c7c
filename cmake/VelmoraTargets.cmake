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

# C++17, no Qt keywords, high warnings for our own code. Errors only on request, never for an embedding project.
function(velmora_configure_target target)
    set_target_properties(${target} PROPERTIES
        CXX_STANDARD 17
        CXX_STANDARD_REQUIRED ON
        CXX_EXTENSIONS OFF
        AUTOMOC ON
        UNITY_BUILD OFF # sources have file-wide names of their own that others have too
    )
    if(VELMORA_PRECOMPILE_HEADERS)
        target_precompile_headers(${target} PRIVATE
            <QApplication> <QHash> <QPainter> <QStyle> <QWidget> <functional> <memory> <unordered_map>
        )
    endif()
    if(VELMORA_COMPILER_LAUNCHER)
        set_target_properties(${target} PROPERTIES CXX_COMPILER_LAUNCHER "${VELMORA_COMPILER_LAUNCHER}")
    endif()
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
