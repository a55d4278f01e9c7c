# Asked for by the name that both kits have, this one gives way to the kit for Qt 5 beside it, where that suits too.
set(velmora_gives_way FALSE)
if(NOT Velmora_DIR STREQUAL CMAKE_CURRENT_LIST_DIR) # which a user sets, or an earlier run has chosen
    include("${CMAKE_CURRENT_LIST_DIR}/../Velmora/VelmoraConfigVersion.cmake" OPTIONAL RESULT_VARIABLE velmora_beside)
    if(velmora_beside AND NOT PACKAGE_VERSION_UNSUITABLE AND (PACKAGE_VERSION_COMPATIBLE OR NOT PACKAGE_FIND_VERSION))
        set(velmora_gives_way TRUE)
    endif()
    foreach(velmora_result IN ITEMS "" _COMPATIBLE _EXACT _UNSUITABLE)
        unset(PACKAGE_VERSION${velmora_result})
    endforeach()
endif()

include("${CMAKE_CURRENT_LIST_DIR}/VelmoraQt6ConfigVersion.cmake")
if(velmora_gives_way AND NOT PACKAGE_VERSION_UNSUITABLE)
    set(PACKAGE_VERSION_UNSUITABLE TRUE)
    string(APPEND PACKAGE_VERSION ", for Qt 6, which gives way to Velmora for Qt 5 beside it")
endif()
