# Which C++ interface this compiler has: classes cross the library's border.
if(NOT WIN32)
  set(gesso_interface headless)
elseif(MSVC OR CMAKE_CXX_SIMULATE_ID STREQUAL "MSVC" OR CMAKE_C_SIMULATE_ID STREQUAL "MSVC")
  set(gesso_interface msvc)
else()
  set(gesso_interface gnu)
endif()

# And which processor it compiles for: Microsoft's compilers tell it themselves, since one project may be built for several.
set(gesso_processor ${CMAKE_SYSTEM_PROCESSOR})
foreach(language IN ITEMS C CXX)
  if(CMAKE_${language}_COMPILER_ARCHITECTURE_ID)
    set(gesso_processor ${CMAKE_${language}_COMPILER_ARCHITECTURE_ID})
  endif()
endforeach()
string(TOLOWER "${gesso_processor}" gesso_processor)
string(REGEX REPLACE "^(amd64|x86_64)$" "x64" gesso_processor "${gesso_processor}")
string(REGEX REPLACE "^aarch64$" "arm64" gesso_processor "${gesso_processor}")
