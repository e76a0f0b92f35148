# The library itself: gesso.dll on Windows; on Linux a static library with the simulated desktop inside.
set(root ${PROJECT_SOURCE_DIR})
set(generated ${PROJECT_BINARY_DIR}/include)

# Installed hosts find the platform door under <gesso/platform/...>; forwarders give the tree the same paths.
file(RELATIVE_PATH platform_from_forwarder ${generated}/gesso/platform ${root}/platform)
file(CONFIGURE OUTPUT ${generated}/gesso/platform/platform.h
     CONTENT "#include \"${platform_from_forwarder}/platform.h\" // IWYU pragma: export\n")
file(CONFIGURE OUTPUT ${generated}/gesso/platform/headless/headless.h
     CONTENT "#include \"../${platform_from_forwarder}/headless/headless.h\" // IWYU pragma: export\n")

# The library serves compilers that have its C++ interface, and its package tells others so.
if(NOT WIN32)
  set(GESSO_INTERFACE headless)
elseif(MSVC OR CMAKE_CXX_SIMULATE_ID STREQUAL "MSVC")
  set(GESSO_INTERFACE msvc)
else()
  set(GESSO_INTERFACE gnu)
endif()

file(GLOB_RECURSE sources CONFIGURE_DEPENDS ${root}/gesso/*.cpp)
list(APPEND sources ${root}/platform/MessageName.cpp)
if(WIN32)
  # What the DLL says of itself: version and compiler.
  string(REPLACE "." "," version_numbers ${PROJECT_VERSION})
  configure_file(${root}/cmake/version.rc.in ${PROJECT_BINARY_DIR}/version.rc @ONLY)
  add_library(gesso SHARED ${sources} ${root}/gesso/resources/gesso.rc ${PROJECT_BINARY_DIR}/version.rc)
  if(GESSO_INTERFACE STREQUAL "msvc")
    set(import_prefix "")
    # A host's debugger reads gesso.pdb. Told to make one, linkers keep what nobody refers to unless told again.
    if(MSVC)
      target_compile_options(gesso PRIVATE /Zi)
      # Its own runtime is linked in, so that the DLL needs system DLLs only.
      set_property(TARGET gesso PROPERTY MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
      # The DLL has a manifest of its own among its resources, which one by the linker would switch off.
      target_link_options(gesso PRIVATE /debug /opt:ref,icf /MANIFEST:NO)
    else()
      target_compile_options(gesso PRIVATE $<$<COMPILE_LANGUAGE:CXX>:-g;-gcodeview>)
      # By its name alone the PDB is found beside the DLL, wherever that is.
      target_link_options(gesso PRIVATE "SHELL:-Xlinker /debug" "SHELL:-Xlinker /opt:ref,icf"
                          "SHELL:-Xlinker /pdbaltpath:%_PDB%")
      target_link_libraries(gesso PRIVATE -Wl,/manifest:no) # behind what CMake asks for
    endif()
  else()
    set(import_prefix lib)
    # The compiler's runtime is linked in, so that the DLL needs system DLLs only.
    target_link_options(gesso PRIVATE -static)
  endif()
  set_target_properties(gesso PROPERTIES PREFIX "" IMPORT_PREFIX "${import_prefix}"
                        RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
  # Some records of the theme service are declared by their neutral names: the wide ones are meant.
  target_compile_definitions(gesso PRIVATE UNICODE _UNICODE)
  target_link_libraries(gesso PRIVATE uxtheme usp10 comctl32 imm32 shlwapi advapi32 gdi32 user32 kernel32)
else()
  file(GLOB_RECURSE platform CONFIGURE_DEPENDS ${root}/platform/headless/*.cpp)
  add_library(gesso STATIC ${sources} ${platform})
  # The library's resources stand in the program as the compiled file.
  find_program(GESSO_WINDRES NAMES x86_64-w64-mingw32-windres REQUIRED)
  set(resources ${PROJECT_BINARY_DIR}/gesso.res)
  file(GLOB_RECURSE resource_sources CONFIGURE_DEPENDS ${root}/gesso/resources/*)
  add_custom_command(OUTPUT ${resources} DEPENDS ${resource_sources}
    COMMAND ${GESSO_WINDRES} -O res ${root}/gesso/resources/gesso.rc ${resources})
  set_source_files_properties(${root}/platform/headless/kernel/ResourceFile.cpp PROPERTIES
    OBJECT_DEPENDS ${resources} COMPILE_DEFINITIONS "GESSO_RESOURCE_FILE=\"${resources}\"")
  set_target_properties(gesso PROPERTIES OUTPUT_NAME gesso-headless EXPORT_NAME headless)
  # What a host's tests must be built with as well: 16-bit wide characters and the platform's headers.
  find_path(GESSO_PLATFORM_HEADERS uxtheme.h PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
            NO_DEFAULT_PATH REQUIRED)
  target_include_directories(gesso SYSTEM PUBLIC ${GESSO_PLATFORM_HEADERS})
  # The desktop keeps text as char16_t and hands it out as wchar_t of the same size.
  set(short_wchar -fshort-wchar -fno-strict-aliasing)
  target_compile_options(gesso PUBLIC ${short_wchar})
  add_compile_options(${short_wchar})
  add_library(gesso::headless ALIAS gesso)
endif()
add_library(gesso::gesso ALIAS gesso)

target_compile_features(gesso PUBLIC cxx_std_20)
target_compile_definitions(gesso PRIVATE GESSO_BUILDING)
target_link_libraries(gesso PRIVATE $<BUILD_INTERFACE:gesso_warnings>)
target_include_directories(gesso PUBLIC
  $<BUILD_INTERFACE:${root}> $<BUILD_INTERFACE:${generated}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

# Most of a source's compile time is the platform's headers, which every one of them starts from.
target_precompile_headers(gesso PRIVATE ${root}/platform/platform.h)

if(GESSO_SANITIZE)
  add_compile_options(-fsanitize=${GESSO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${GESSO_SANITIZE})
  target_compile_options(gesso PUBLIC -fsanitize=${GESSO_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(gesso PUBLIC -fsanitize=${GESSO_SANITIZE})
endif()
