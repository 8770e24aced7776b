include(CMakePackageConfigHelpers)

set(config_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OrvelMath")
set(installed_targets OrvelMath)
if(NOT ORVELCORE_ROOT)
    list(APPEND installed_targets OrvelCore)
endif()

# One export set, hence one namespace, a library.
foreach(library IN LISTS installed_targets)
    install(TARGETS ${library} EXPORT ${library}Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(EXPORT ${library}Targets NAMESPACE ${library}:: DESTINATION ${config_dir})
endforeach()

# Headers with the suffix _p are the library's own business and stay at home.
foreach(library IN LISTS installed_targets)
    install(DIRECTORY libs/${library} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
endforeach()

configure_package_config_file(cmake/OrvelMathConfig.cmake.in OrvelMathConfig.cmake
    INSTALL_DESTINATION ${config_dir})
write_basic_package_version_file(OrvelMathConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES
    "${CMAKE_CURRENT_BINARY_DIR}/OrvelMathConfig.cmake"
    "${CMAKE_CURRENT_BINARY_DIR}/OrvelMathConfigVersion.cmake"
    DESTINATION ${config_dir})

# The second library is a package of its own, which asks for the first.
if(TARGET OrvelExact)
    set(exact_config_dir "${CMAKE_INSTALL_LIBDIR}/cmake/OrvelExact")
    install(TARGETS OrvelExact EXPORT OrvelExactTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
    install(EXPORT OrvelExactTargets NAMESPACE OrvelExact:: DESTINATION ${exact_config_dir})
    install(DIRECTORY libs/OrvelExact DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
    configure_package_config_file(cmake/OrvelExactConfig.cmake.in OrvelExactConfig.cmake
        INSTALL_DESTINATION ${exact_config_dir})
    write_basic_package_version_file(OrvelExactConfigVersion.cmake COMPATIBILITY SameMajorVersion)
    install(FILES
        "${CMAKE_CURRENT_BINARY_DIR}/OrvelExactConfig.cmake"
        "${CMAKE_CURRENT_BINARY_DIR}/OrvelExactConfigVersion.cmake"
        DESTINATION ${exact_config_dir})
endif()

# The description finds the prefix from where it lies itself, so that an installed tree may move.
# Debian's Qt wants its clients to be position-independent.
file(RELATIVE_PATH prefix_from_description
    "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
string(JOIN " " description_flags -fPIC ${orvel_floating_point_flags})
set(description_libraries "-lOrvelMath")
if(ORVELCORE_ROOT)
    get_filename_component(companion_dir "${ORVELCORE_LIBRARY}" DIRECTORY)
    string(APPEND description_libraries " -L${companion_dir}")
    string(APPEND description_flags " -I${ORVELCORE_ROOT}/include")
endif()
string(APPEND description_libraries " -lOrvelCore")
if(NOT BUILD_SHARED_LIBS)
    list(TRANSFORM CMAKE_DL_LIBS PREPEND " -l" OUTPUT_VARIABLE loader_libraries)
    string(APPEND description_libraries ${loader_libraries})
endif()
configure_file(cmake/OrvelMath.pc.in OrvelMath.pc @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/OrvelMath.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
