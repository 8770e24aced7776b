# Builds the library again: static, and against a companion that is installed elsewhere. Installs it
# and builds the README's program against both.
include("${CMAKE_CURRENT_LIST_DIR}/consumer.cmake")

# The companion of the installed tree, alone.
set(companion "${WORK_DIR}/companion")
file(REMOVE_RECURSE "${companion}")
file(COPY "${prefix}/include/OrvelCore" DESTINATION "${companion}/include")
file(GLOB_RECURSE companion_files "${prefix}/*/libOrvelCore.so*")
file(COPY ${companion_files} DESTINATION "${companion}/lib")

set(aside "${WORK_DIR}/aside")
run(${CMAKE_COMMAND} -S "${SOURCE_DIR}" -B "${aside}/build" -G Ninja
    "-DCMAKE_CXX_COMPILER=${CXX_COMPILER}" "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}"
    "-DCMAKE_CXX_COMPILER_LAUNCHER=${CXX_LAUNCHER}" -DCMAKE_BUILD_TYPE=Debug
    -DCMAKE_INSTALL_LIBDIR=lib
    -DBUILD_SHARED_LIBS=OFF "-DORVELCORE_ROOT=${companion}" -DORVEL_BUILD_EXACT=OFF
    -DORVELMATH_BUILD_TESTS=OFF -DORVELMATH_BUILD_PROGRAMS=OFF -DORVELMATH_BUILD_EXAMPLES=OFF)
run(${CMAKE_COMMAND} --build "${aside}/build")

# Each source that has anything of the companion has it from the copy.
run(ninja -C "${aside}/build" -t deps)
if(output MATCHES "libs/OrvelCore/" OR NOT output MATCHES "companion/include/OrvelCore/")
    message(FATAL_ERROR "the headers of libs/OrvelCore come before those of the companion")
endif()

set(prefix "${aside}/prefix")
run(${CMAKE_COMMAND} --install "${aside}/build" --prefix "${prefix}")
if(EXISTS "${prefix}/include/OrvelCore" OR NOT EXISTS "${prefix}/lib/libOrvelMath.a")
    message(FATAL_ERROR "installed were the companion's headers, or no static library")
endif()

set(folder "${aside}/first")
write_snippet(cpp "${folder}/first.cpp")
write_snippet(cmake "${folder}/CMakeLists.txt")
configure_arguments("${folder}" "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}")
run(${configure})
run(${CMAKE_COMMAND} --build "${folder}/build")
run_readme_program("${folder}/build/first")

run(${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${prefix}/lib/pkgconfig"
    pkg-config --cflags --libs OrvelMath)
separate_arguments(flags UNIX_COMMAND "${output}")
separate_arguments(own_flags UNIX_COMMAND "${CXX_FLAGS}")
run("${CXX_COMPILER}" ${own_flags} "${folder}/first.cpp" ${flags} -o "${folder}/static")
run_readme_program("${folder}/static" ${CMAKE_COMMAND} -E env "LD_LIBRARY_PATH=${companion}/lib")
