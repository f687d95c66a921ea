# `cmake --install` puts the static library, the C interface's shared library, the headers
# (with the C header's module map), the vastrel tool, the Java binding when it is built, and
# two packages under the prefix, each as CMake config and pkg-config file:
# - vastrel: the C++ library, find_package(vastrel CONFIG) -> vastrel::vastrel (and vastrel::c);
# - vastrel-c: the C interface alone, find_package(vastrel-c CONFIG) -> vastrel::c, which needs
#   none of the C++ library's dependencies.
# All are relocatable: they find the prefix from where they are installed.
include(CMakePackageConfigHelpers)

set(VASTREL_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/vastrel")

install(TARGETS vastrel EXPORT vastrelTargets
    ARCHIVE DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(TARGETS vastrel_c EXPORT vastrel-cTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
install(DIRECTORY "${PROJECT_SOURCE_DIR}/include/vastrel"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}"
    FILES_MATCHING PATTERN "*.hpp" PATTERN "*.h" PATTERN "module.modulemap")
if(TARGET vastrel_tool)
    install(TARGETS vastrel_tool RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
endif()

# The static library still needs its dependencies at the consumer's link step, so the
# package finds them again: nlohmann_json through its own package, the Intel decimal and Mbed
# TLS crypto libraries through our find modules, installed next to the config.
install(EXPORT vastrelTargets NAMESPACE vastrel:: DESTINATION "${VASTREL_CMAKE_DIR}")
set(VASTREL_C_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/vastrel-c")
install(EXPORT vastrel-cTargets NAMESPACE vastrel:: DESTINATION "${VASTREL_C_CMAKE_DIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/vastrel-cConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/vastrel-cConfig.cmake"
    INSTALL_DESTINATION "${VASTREL_C_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/vastrel-cConfigVersion.cmake"
    VERSION "${PROJECT_VERSION}" COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/vastrel-cConfig.cmake"
    "${PROJECT_BINARY_DIR}/vastrel-cConfigVersion.cmake"
    DESTINATION "${VASTREL_C_CMAKE_DIR}")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/vastrelConfig.cmake.in"
    "${PROJECT_BINARY_DIR}/vastrelConfig.cmake"
    INSTALL_DESTINATION "${VASTREL_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/vastrelConfigVersion.cmake"
    VERSION "${PROJECT_VERSION}" COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/vastrelConfig.cmake"
    "${PROJECT_BINARY_DIR}/vastrelConfigVersion.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindIntelDecimal.cmake"
    "${PROJECT_SOURCE_DIR}/cmake/FindMbedCrypto.cmake"
    DESTINATION "${VASTREL_CMAKE_DIR}")

# pkg-config: the prefix is found from the .pc file's own directory, as many levels up as
# ${CMAKE_INSTALL_LIBDIR}/pkgconfig is deep ("lib/pkgconfig" -> "../..").
set(VASTREL_PC_DIR "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
string(REGEX REPLACE "[^/]+" ".." VASTREL_PC_PREFIX_FROM_PCDIR "${VASTREL_PC_DIR}")
set(VASTREL_PC_DECIMAL_LIBRARY "${IntelDecimal_LIBRARY}")
configure_file("${PROJECT_SOURCE_DIR}/cmake/vastrel.pc.in" "${PROJECT_BINARY_DIR}/vastrel.pc"
    @ONLY)
configure_file("${PROJECT_SOURCE_DIR}/cmake/vastrel-c.pc.in" "${PROJECT_BINARY_DIR}/vastrel-c.pc"
    @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/vastrel.pc" "${PROJECT_BINARY_DIR}/vastrel-c.pc"
        DESTINATION "${VASTREL_PC_DIR}")
