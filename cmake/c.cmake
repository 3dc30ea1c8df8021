# The library for C: on Linux one of its own, on Windows a part of the automation server's.
quorkit_host(c)
target_compile_definitions(quorkit-c-host
  PUBLIC QUORKIT_API= PRIVATE QUORKIT_VERSION="${PROJECT_VERSION}")
target_compile_options(quorkit-c-host PRIVATE $<$<CONFIG:Release>:-O2>)  # calls are short
if(QUORKIT_TESTS)
  target_compile_options(quorkit-c-host PRIVATE -g)  # the frozen interface is compared from it
endif()
# What it exports is what its header declares.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS hosts/c/quorkit.h)
file(STRINGS hosts/c/quorkit.h c_functions REGEX "^QUORKIT_API .*\\(")
list(TRANSFORM c_functions REPLACE "^.*[ *](quorkit_[a-z0-9_]+)\\(.*$" "\\1")
if(NOT WIN32 AND NOT QUORKIT_SHARED)
  list(JOIN c_functions ";\n" exported_functions)
  set(c_exports ${PROJECT_BINARY_DIR}/quorkit-c.map)
  file(CONFIGURE OUTPUT ${c_exports} CONTENT "{ global:\n@exported_functions@;\nlocal: *; };\n" @ONLY)
  file(TOUCH ${PROJECT_BINARY_DIR}/quorkit-c.cpp)
  add_library(quorkit-c SHARED ${PROJECT_BINARY_DIR}/quorkit-c.cpp)
  set_target_properties(quorkit-c PROPERTIES OUTPUT_NAME quorkit LINKER_LANGUAGE CXX
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} LINK_DEPENDS ${c_exports})
  target_link_libraries(quorkit-c PRIVATE $<LINK_LIBRARY:WHOLE_ARCHIVE,quorkit-c-host>)
  target_link_options(quorkit-c PRIVATE
    LINKER:--version-script=${c_exports},-Bsymbolic $<$<NOT:$<BOOL:${QUORKIT_SANITIZE}>>:LINKER:--no-undefined>)
endif()
