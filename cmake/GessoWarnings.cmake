# The warnings that every target of this tree is built with.
add_library(gesso_warnings INTERFACE)
if(MSVC)
  target_compile_options(gesso_warnings INTERFACE /W4 /utf-8 /wd4068 $<$<BOOL:${GESSO_WERROR}>:/WX>)
else()
  target_compile_options(gesso_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor
                         $<$<BOOL:${GESSO_WERROR}>:-Werror>)
  if(CMAKE_CXX_SIMULATE_ID STREQUAL "MSVC")
    # There __int64 is a type of its own; clang calls it an extension.
    target_compile_options(gesso_warnings INTERFACE -Wno-language-extension-token)
  endif()
endif()
