include("${CMAKE_CURRENT_LIST_DIR}/VelmoraQt6Config.cmake")
