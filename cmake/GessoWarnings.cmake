# The warnings that every target of this tree is built with.
add_library(gesso_warnings INTERFACE)
target_compile_options(gesso_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor)
if(GESSO_WERROR)
  target_compile_options(gesso_warnings INTERFACE -Werror)
endif()
