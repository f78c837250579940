# Warnings for the project's own targets; sanitizers for everything built in a sanitizer build.
function(rune_strict_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic $<$<BOOL:${RUNE_WERROR}>:-Werror>)
endfunction()

if(RUNE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# libFuzzer coverage in every target, the libraries included; the fuzzers link libFuzzer itself.
if(RUNE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

# A shared library of the project: its sources are src/**/*.cpp but those listed after BUILT_APART
# (compiled by a target of their own), its public headers include/. Its file carries the project's
# version; its SONAME the interface version given after SOVERSION, which changes only when clients
# must be built again.
# Everything is hidden unless a public header says otherwise (each wraps its declarations in
# "#pragma GCC visibility push(default)"), so a private header needs no mark of its own; the
# export map then keeps the standard library's instances out (cmake/exports.map).
function(rune_shared_library name)
  cmake_parse_arguments(PARSE_ARGV 1 library "" "SOVERSION" "BUILT_APART")
  file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/src/*.cpp)
  foreach(source ${library_BUILT_APART})
    list(REMOVE_ITEM sources ${CMAKE_CURRENT_SOURCE_DIR}/${source})
  endforeach()
  add_library(${name} SHARED ${sources})
  add_library(RuneCommon::${name} ALIAS ${name})
  set_target_properties(${name} PROPERTIES
    VERSION ${PROJECT_VERSION}
    SOVERSION ${library_SOVERSION}
    EXPORT_NAME ${name}
    CXX_VISIBILITY_PRESET hidden
    LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
  target_include_directories(${name}
    PUBLIC
      $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}/include>
      $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    PRIVATE src)
  target_link_options(${name} PRIVATE -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map)
  rune_strict_warnings(${name})
endfunction()
