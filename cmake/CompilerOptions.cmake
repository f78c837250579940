# Warnings for the project's own targets; sanitizers for everything built in a sanitizer build.
function(rune_strict_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic $<$<BOOL:${RUNE_WERROR}>:-Werror>)
endfunction()

if(RUNE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
