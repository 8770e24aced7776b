# What the installed tree refuses, with a sentence that says why.
include("${CMAKE_CURRENT_LIST_DIR}/consumer.cmake")

set(folder "${WORK_DIR}/refusals")
set(project_head "cmake_minimum_required(VERSION 3.25)\nproject(refused LANGUAGES CXX)\n")

# Qt 6, by the package, and by the headers where nobody asked the package.
file(REMOVE_RECURSE "${folder}")
file(WRITE "${folder}/qt6/CMakeLists.txt" "${project_head}"
    "add_library(Qt6::Core INTERFACE IMPORTED)\n"
    "find_package(OrvelMath REQUIRED)\n")
configure_arguments("${folder}/qt6")
run_refused("OrvelMath is built for Qt 5, and this project uses Qt 6" ${configure})

file(WRITE "${folder}/include/QtCore/qglobal.h"
    "#define QT_VERSION_CHECK(major, minor, patch) ((major << 16) | (minor << 8) | patch)\n"
    "#define QT_VERSION QT_VERSION_CHECK(6, 4, 2)\n"
    "#define Q_DECL_EXPORT\n"
    "#define Q_DECL_IMPORT\n")
foreach(library IN ITEMS OrvelCore OrvelMath)
    file(WRITE "${folder}/qt6.cpp" "#include <${library}/${library}Export.h>\n")
    run_refused("${library} is built for Qt 5. Qt 6 is not supported yet"
        "${CXX_COMPILER}" -fsyntax-only -I "${folder}/include" -I "${prefix}/include"
        "${folder}/qt6.cpp")
endforeach()

# A component that there isn't.
file(WRITE "${folder}/component/CMakeLists.txt" "${project_head}"
    "find_package(OrvelMath REQUIRED COMPONENTS OrvelMath Sculpture)\n")
configure_arguments("${folder}/component")
run_refused("OrvelMath has no component Sculpture" ${configure})
file(WRITE "${folder}/optional/CMakeLists.txt" "${project_head}"
    "find_package(OrvelMath REQUIRED COMPONENTS OrvelMath OPTIONAL_COMPONENTS Sculpture)\n")
configure_arguments("${folder}/optional")
run(${configure})

# A newer major version.
file(WRITE "${folder}/version/CMakeLists.txt" "${project_head}"
    "find_package(OrvelMath 99 REQUIRED)\n")
configure_arguments("${folder}/version")
run_refused("version \"99\"" ${configure})
