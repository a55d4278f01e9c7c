# Included into a host's project: its program quits once its window was painted.
add_compile_options("SHELL:-include \"${CMAKE_CURRENT_LIST_DIR}/LeaveWhenShown.h\"")
