# In a build with --coverage, the target `coverage` runs the tests and writes what they reach of the library to coverage/index.html.
if(NOT CMAKE_CXX_FLAGS_DEBUG MATCHES "--coverage")
    return()
endif()

find_program(VELMORA_GCOVR gcovr)
mark_as_advanced(VELMORA_GCOVR)
if(NOT VELMORA_GCOVR)
    message(STATUS "gcovr is missing: there is no target coverage")
    return()
endif()

add_custom_target(coverage
    COMMAND "${CMAKE_CTEST_COMMAND}" --output-on-failure --label-exclude "package|desktop"
    COMMAND "${CMAKE_COMMAND}" -E make_directory coverage
    COMMAND "${VELMORA_GCOVR}" --root "${PROJECT_SOURCE_DIR}" --filter "${PROJECT_SOURCE_DIR}/src/"
        --exclude-throw-branches --exclude-unreachable-branches
        --html-details coverage/index.html --txt coverage/summary.txt --print-summary .
    WORKING_DIRECTORY "${PROJECT_BINARY_DIR}"
    COMMENT "Running the tests for their coverage"
    USES_TERMINAL
    VERBATIM
)
