# The install tree and the CMake package, for find_package(KOVIS CONFIG) from the install and from the build tree.

include(CMakePackageConfigHelpers)

get_property(kovisLibraries GLOBAL PROPERTY KOVIS_LIBRARIES)
set(kovisPackageFolder "${CMAKE_INSTALL_LIBDIR}/cmake/KOVIS")

install(TARGETS ${kovisLibraries} EXPORT KOVISTargets LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/public/" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" FILES_MATCHING PATTERN "*.h")

configure_package_config_file(
    "${PROJECT_SOURCE_DIR}/cmake/KOVISConfig.cmake.in" "${PROJECT_BINARY_DIR}/KOVISConfig.cmake"
    INSTALL_DESTINATION "${kovisPackageFolder}" NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KOVISConfigVersion.cmake" COMPATIBILITY SameMajorVersion)

install(FILES "${PROJECT_BINARY_DIR}/KOVISConfig.cmake" "${PROJECT_BINARY_DIR}/KOVISConfigVersion.cmake"
        DESTINATION "${kovisPackageFolder}")
install(EXPORT KOVISTargets NAMESPACE KOVIS:: DESTINATION "${kovisPackageFolder}")
export(EXPORT KOVISTargets NAMESPACE KOVIS:: FILE "${PROJECT_BINARY_DIR}/KOVISTargets.cmake")
