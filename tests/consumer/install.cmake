# Installs the build tree aside, for the other tests.
include("${CMAKE_CURRENT_LIST_DIR}/consumer.cmake")

file(REMOVE_RECURSE "${WORK_DIR}")
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

file(GLOB_RECURSE private_headers "${prefix}/*_p.h")
if(private_headers)
    message(FATAL_ERROR "private headers were installed: ${private_headers}")
endif()
