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

if(WIN32)
  install(TARGETS quorkit-server LIBRARY DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${import_library} ${manifest} ${type_library}/quorkit.tlb TYPE BIN)
  install(FILES ${c_header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quorkit)
endif()
install(FILES README.md CHANGELOG.md TYPE DOC)
install(DIRECTORY docs examples TYPE DOC)
# Whose terms ask for that: code of theirs is part of the programs.
if(CMAKE_CROSSCOMPILING)
  foreach(package mingw-w64-common nlohmann-json3-dev)
    install(FILES /usr/share/doc/${package}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR}/notices
            RENAME ${package}.txt)
  endforeach()
endif()

install(EXPORT quorkit FILE quorkit-config.cmake NAMESPACE quorkit:: DESTINATION ${package_dir})
write_basic_package_version_file(quorkit-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/quorkit-config-version.cmake DESTINATION ${package_dir})

cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig
           OUTPUT_VARIABLE prefix_from_pkgconfig)
# Without --static, pkg-config tells nobody what a static library needs.
if(NOT QUORKIT_SHARED)
  set(pkgconfig_static ${pkgconfig_libraries})
endif()
set(pkgconfig_library quorkit++)
configure_file(cmake/quorkit.pc.in quorkit++.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/quorkit++.pc DESTINATION ${pkgconfig_dir})
install(FILES hosts/c/quorkit.h TYPE INCLUDE)
if(TARGET quorkit-c)
  install(TARGETS quorkit-c)
  set(pkgconfig_library quorkit)
  set(pkgconfig_static)
  set(pkgconfig_libraries)
  configure_file(cmake/quorkit.pc.in quorkit.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/quorkit.pc DESTINATION ${pkgconfig_dir})
endif()
