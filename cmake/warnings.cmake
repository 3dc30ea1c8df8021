# What every target of ours is built with: warnings are errors.
function(quorkit_strict target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Werror)
  if(NOT WIN32)
    target_compile_options(${target} PRIVATE -fno-semantic-interposition)  # nothing takes our place
  endif()
  # GCC 12 finds overlaps, sizes and bounds inside the standard library's strings that are not
  # there (its bugs 105651 and 105329).
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow)
  endif()
  # Clang counts changes of sign among conversions, GCC does not.
  if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(${target} PRIVATE -Wno-sign-conversion)
  endif()
  if(QUORKIT_FUZZ)
    target_compile_options(${target} PUBLIC -fsanitize=fuzzer-no-link)
  endif()
  if(QUORKIT_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()
