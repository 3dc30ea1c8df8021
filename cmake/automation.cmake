# The automation server: one file, which needs nothing beside it; and what its clients are built with.
enable_language(RC)
include(cmake/type_library.cmake)
set(type_library ${PROJECT_BINARY_DIR}/type_library)
math(EXPR bits "8 * ${CMAKE_SIZEOF_VOID_P}")
quorkit_type_library(${bits} ${type_library})
set(resources hosts/automation/type_library/type_library.rc)
set_source_files_properties(${resources} PROPERTIES OBJECT_DEPENDS ${type_library}/quorkit.tlb)
add_library(quorkit-server-resources OBJECT ${resources} hosts/version.rc)
target_include_directories(quorkit-server-resources PRIVATE ${type_library})
add_library(quorkit-cli-resources OBJECT hosts/version.rc)
target_compile_definitions(quorkit-cli-resources PRIVATE QUORKIT_PROGRAM)
foreach(part quorkit-server-resources quorkit-cli-resources)
  target_compile_definitions(${part} PRIVATE QUORKIT_MAJOR=${PROJECT_VERSION_MAJOR}
    QUORKIT_MINOR=${PROJECT_VERSION_MINOR} QUORKIT_PATCH=${PROJECT_VERSION_PATCH})
endforeach()
target_link_libraries(quorkit-cli PRIVATE quorkit-cli-resources)

# The numbers behind the names are for 32 bits; the server exports all names without them.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS hosts/automation/quorkit.def)
file(READ hosts/automation/quorkit.def exports)
list(JOIN c_functions "\n    " exports_for_c)
string(APPEND exports "    ${exports_for_c}\n")
if(bits EQUAL 64)
  string(REGEX REPLACE "@[0-9]+" "" exports "${exports}")
endif()
set(exported ${PROJECT_BINARY_DIR}/quorkit.def)
file(CONFIGURE OUTPUT ${exported} CONTENT "${exports}" @ONLY)
file(GLOB automation CONFIGURE_DEPENDS hosts/automation/*.cpp)
add_library(quorkit-server MODULE ${automation} ${exported})
set_target_properties(quorkit-server PROPERTIES OUTPUT_NAME quorkit PREFIX "")
target_include_directories(quorkit-server PRIVATE hosts)
target_compile_definitions(quorkit-server PRIVATE NOMINMAX WIN32_LEAN_AND_MEAN)
target_link_libraries(quorkit-server PRIVATE
  $<LINK_LIBRARY:WHOLE_ARCHIVE,quorkit-c-host> quorkit-server-resources oleaut32 ole32 uuid)
target_link_options(quorkit-server PRIVATE -static LINKER:--kill-at)
quorkit_strict(quorkit-server)
# What is shipped depends on the sources alone, not on the hour.
foreach(shipped quorkit-cli quorkit-server)
  target_link_options(${shipped} PRIVATE -s LINKER:--no-insert-timestamp)
endforeach()

set(import_library ${PROJECT_BINARY_DIR}/quorkit.lib)
add_custom_command(
  OUTPUT ${import_library}
  COMMAND ${CMAKE_DLLTOOL} --kill-at --input-def ${exported} --output-lib ${import_library}
  DEPENDS ${exported} VERBATIM)
set(manifest ${PROJECT_BINARY_DIR}/quorkit.automation.manifest)
set(c_header ${PROJECT_BINARY_DIR}/automation.h)
add_custom_command(
  OUTPUT ${manifest} ${c_header}
  COMMAND quorkit-cli describe --manifest > ${manifest}
  COMMAND quorkit-cli describe --c-header > ${c_header}
  DEPENDS quorkit-cli VERBATIM)
add_custom_target(quorkit-client-files ALL DEPENDS ${import_library} ${manifest} ${c_header})
