# Type libraries, written from the catalogue by a program of ours with the means of the Windows that
# it runs under: Wine, in a build for Windows on another system.
add_executable(quorkit-type-library EXCLUDE_FROM_ALL
  hosts/automation/type_library/descriptions.cpp hosts/automation/type_library/main.cpp
  hosts/automation/type_library/mend.cpp hosts/automation/type_library/writer.cpp)
target_include_directories(quorkit-type-library PRIVATE hosts)
target_link_libraries(quorkit-type-library PRIVATE quorkit ole32 oleaut32 uuid)
quorkit_strict(quorkit-type-library)

# quorkit_type_library(BITS FOLDER): makes FOLDER/quorkit.tlb for programs of 32 or 64 bits. Who
# compiles hosts/automation/type_library/type_library.rc with FOLDER among its include folders has it
# in a DLL.
function(quorkit_type_library bits folder)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(
    OUTPUT ${folder}/quorkit.tlb
    COMMAND quorkit-type-library ${bits} ${folder}/quorkit.tlb
    DEPENDS quorkit-type-library VERBATIM)
endfunction()
