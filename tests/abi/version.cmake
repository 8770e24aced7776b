# The version of the project() line is the one place; all else follows it or is compared with it.
cmake_minimum_required(VERSION 3.25)

function(expect what actual)
    if(NOT actual STREQUAL VERSION)
        message(SEND_ERROR "${what} says ${actual}, the project ${VERSION}")
    endif()
endfunction()

string(REPLACE "." ";" numbers "${VERSION}")
list(GET numbers 0 major)

file(READ "${SOURCE_DIR}/libs/OrvelMath/OrvelMathVersion.h" header)
set(parts "")
foreach(part IN ITEMS MAJOR MINOR PATCH)
    string(REGEX MATCH "ORVELMATH_VERSION_${part} ([0-9]+)\n" match "${header}")
    list(APPEND parts "${CMAKE_MATCH_1}")
endforeach()
list(JOIN parts "." numbers_of_header)
expect("OrvelMathVersion.h, by its numbers," "${numbers_of_header}")
string(REGEX MATCH "ORVELMATH_VERSION_STRING \"([^\"]*)\"" match "${header}")
expect("OrvelMathVersion.h, by its text," "${CMAKE_MATCH_1}")

# The newest entry of the change log, unless it is about what comes.
file(STRINGS "${SOURCE_DIR}/CHANGELOG.md" entries REGEX "^## [0-9]")
list(GET entries 0 entry)
string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" released "${entry}")
expect("CHANGELOG.md" "${released}")

file(STRINGS "${BUILD_DIR}/OrvelMathConfigVersion.cmake" package REGEX "^set\\(PACKAGE_VERSION \"")
string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" packaged "${package}")
expect("the package config" "${packaged}")

file(STRINGS "${BUILD_DIR}/OrvelMath.pc" description REGEX "^Version:")
string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+" described "${description}")
expect("OrvelMath.pc" "${described}")

string(REPLACE "," ";" LIBRARIES "${LIBRARIES}")
foreach(library IN LISTS LIBRARIES)
    if(NOT library MATCHES "\\.so")
        continue() # static libraries have no version
    endif()
    file(REAL_PATH "${library}" file)
    string(REGEX MATCH "[0-9]+\\.[0-9]+\\.[0-9]+$" of_file "${file}")
    expect("the name of ${file}" "${of_file}")
    execute_process(COMMAND readelf -d "${library}" OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
    if(NOT dynamic MATCHES "SONAME.*\\.so\\.${major}\\]")
        message(SEND_ERROR "the SONAME of ${library} doesn't end in .so.${major}")
    endif()
endforeach()
