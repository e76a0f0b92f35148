# Which C++ interface this compiler has: classes cross the library's border.
if(NOT WIN32)
  set(gesso_interface headless)
elseif(MSVC OR CMAKE_CXX_SIMULATE_ID STREQUAL "MSVC" OR CMAKE_C_SIMULATE_ID STREQUAL "MSVC")
  set(gesso_interface msvc)
else()
  set(gesso_interface gnu)
endif()
