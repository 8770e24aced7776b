# Installs the build tree aside, takes the two snippets out of the README, builds and runs them.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# Writes the README's first code block of a language to a file.
function(write_snippet language file)
    file(READ "${SOURCE_DIR}/README.md" text)
    string(FIND "${text}" "```${language}\n" start)
    string(LENGTH "```${language}\n" fence)
    if(start LESS 0)
        message(FATAL_ERROR "the README has no ${language} snippet")
    endif()
    math(EXPR start "${start} + ${fence}")
    string(SUBSTRING "${text}" ${start} -1 text)
    string(FIND "${text}" "\n```" end)
    math(EXPR end "${end} + 1")
    string(SUBSTRING "${text}" 0 ${end} text)
    file(WRITE "${file}" "${text}")
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
set(prefix "${WORK_DIR}/prefix")
run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")

file(GLOB_RECURSE private_headers "${prefix}/*_p.h")
if(private_headers)
    message(FATAL_ERROR "private headers were installed: ${private_headers}")
endif()

write_snippet(cpp "${WORK_DIR}/first/first.cpp")
write_snippet(cmake "${WORK_DIR}/first/CMakeLists.txt")
run(${CMAKE_COMMAND} -S "${WORK_DIR}/first" -B "${WORK_DIR}/first/build" -G Ninja
    "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}"
    "-DCMAKE_CXX_FLAGS=${CXX_FLAGS} -Wall -Wextra -Werror")
run(${CMAKE_COMMAND} --build "${WORK_DIR}/first/build" --verbose)
if(NOT output MATCHES "-ffp-contract=off")
    message(FATAL_ERROR "the client was not compiled with the library's floating-point flags:\n${output}")
endif()
run("${WORK_DIR}/first/build/first")
string(STRIP "${output}" output)
if(NOT output STREQUAL "4 of 5 points")
    message(FATAL_ERROR "the program printed: ${output}")
endif()

# Each installed header compiles on its own, without the library's private ones.
file(GLOB_RECURSE headers RELATIVE "${prefix}/include" "${prefix}/include/Orvel*/*.h")
set(includes "")
foreach(header IN LISTS headers)
    string(APPEND includes "#include <${header}>\n")
endforeach()
file(WRITE "${WORK_DIR}/first/first.cpp" "${includes}int main() { return 0; }\n")
run(${CMAKE_COMMAND} --build "${WORK_DIR}/first/build")
