# What `cmake --install` puts where. The installed tree may be moved as a whole.
include(CMakePackageConfigHelpers)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/quorkit)
set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Before version 1 a new minor version may change the interface.
set_target_properties(quorkit PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_FULL_BINDIR}
           OUTPUT_VARIABLE libraries_from_programs)
set_target_properties(quorkit-cli PROPERTIES INSTALL_RPATH "$ORIGIN/${libraries_from_programs}")

if(TARGET quorkit-clipboard)
  cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR
             BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBEXECDIR}/quorkit
             OUTPUT_VARIABLE libraries_from_helpers)
  set_target_properties(quorkit-clipboard PROPERTIES
    INSTALL_RPATH "$ORIGIN/${libraries_from_helpers}")
  install(TARGETS quorkit-clipboard DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quorkit)
endif()
install(TARGETS quorkit EXPORT quorkit)
install(TARGETS quorkit-cli)
install(DIRECTORY include/quorkit TYPE INCLUDE FILES_MATCHING PATTERN *.h PATTERN *.def)

install(EXPORT quorkit FILE quorkit-config.cmake NAMESPACE quorkit:: DESTINATION ${package_dir})
write_basic_package_version_file(quorkit-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/quorkit-config-version.cmake DESTINATION ${package_dir})

cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
           OUTPUT_VARIABLE prefix_from_pkgconfig)
# Without --static, pkg-config tells nobody what a static library needs.
if(NOT QUORKIT_SHARED)
  set(pkgconfig_static ${pkgconfig_libraries})
endif()
configure_file(cmake/quorkit.pc.in quorkit.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quorkit.pc DESTINATION ${pkgconfig_dir})
