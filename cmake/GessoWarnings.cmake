# The warnings that every target of this tree is built with.
add_library(gesso_warnings INTERFACE)
target_compile_options(gesso_warnings INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wnon-virtual-dtor)
if(WIN32)
  # A control that fires an operation of the platform looked up at run time casts what GetProcAddress returns.
  target_compile_options(gesso_warnings INTERFACE -Wno-cast-function-type)
endif()
if(GESSO_WERROR)
  target_compile_options(gesso_warnings INTERFACE -Werror)
endif()
