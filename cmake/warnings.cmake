# What every target of ours is built with: warnings are errors.
function(quorkit_strict target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow -Werror)
  if(QUORKIT_SANITIZE)
    target_compile_options(${target} PUBLIC -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=address,undefined)
  endif()
endfunction()
