# Builds and runs the README's two snippets with CMake.
include("${CMAKE_CURRENT_LIST_DIR}/consumer.cmake")

set(folder "${WORK_DIR}/first")
file(REMOVE_RECURSE "${folder}")
write_snippet(cpp "${folder}/first.cpp")
write_snippet(cmake "${folder}/CMakeLists.txt")
configure_arguments("${folder}" "-DCMAKE_CXX_FLAGS=${CXX_FLAGS} -Wall -Wextra -Werror")
run(${configure})
run(${CMAKE_COMMAND} --build "${folder}/build" --verbose)
if(NOT output MATCHES "-ffp-contract=off")
    message(FATAL_ERROR "the client was not compiled with the library's floating-point flags:\n${output}")
endif()
run_readme_program("${folder}/build/first")

# The installed headers do without the library's private ones.
file(GLOB_RECURSE headers RELATIVE "${prefix}/include" "${prefix}/include/Orvel*/*.h")
set(includes "")
foreach(header IN LISTS headers)
    string(APPEND includes "#include <${header}>\n")
endforeach()
file(WRITE "${folder}/first.cpp" "${includes}int main() { return 0; }\n")
run(${CMAKE_COMMAND} --build "${folder}/build")
