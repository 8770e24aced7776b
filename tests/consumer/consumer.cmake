# What the tests of an installed tree share. Each runs as a script with SOURCE_DIR, BUILD_DIR,
# WORK_DIR, CXX_COMPILER and CXX_FLAGS; the tree is installed in WORK_DIR/prefix.
cmake_minimum_required(VERSION 3.25)

set(prefix "${WORK_DIR}/prefix")

# Runs a command and leaves what it printed in `output`. Ends the test if the command fails.
function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# Runs a command that has to fail and to print, across line breaks, the text `reason`.
function(run_refused reason)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output
        ERROR_VARIABLE output)
    if(result EQUAL 0)
        message(FATAL_ERROR "this was not refused: ${ARGN}\n${output}")
    endif()
    string(REGEX REPLACE "[ \n\r\t]+" " " words "${output}")
    string(FIND "${words}" "${reason}" place)
    if(place LESS 0)
        message(FATAL_ERROR "refused without the words '${reason}': ${ARGN}\n${output}")
    endif()
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

# Runs the README's program and compares what it prints.
function(run_readme_program program)
    run(${ARGN} "${program}")
    string(STRIP "${output}" output)
    if(NOT output STREQUAL "4 of 5 points")
        message(FATAL_ERROR "the program printed: ${output}")
    endif()
endfunction()

# Configures the project in `folder`; further arguments go to CMake.
macro(configure_arguments folder)
    set(configure ${CMAKE_COMMAND} -S "${folder}" -B "${folder}/build" -G Ninja
        "-DCMAKE_PREFIX_PATH=${prefix}" "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" ${ARGN})
endmacro()
