# Installs the package `gesso`: find_package(gesso) gives gesso::gesso on Windows and gesso::headless on Linux.
include(CMakePackageConfigHelpers)

set(package ${CMAKE_INSTALL_LIBDIR}/cmake/gesso)
# Both DLLs have one name: one prefix has room for one of them. Asked before anything is overwritten.
foreach(other IN ITEMS gnu msvc)
  if(WIN32 AND NOT other STREQUAL GESSO_INTERFACE)
    install(CODE "
      if(EXISTS \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${package}/gesso-${other}-targets.cmake\")
        message(FATAL_ERROR \"This prefix has the package for the other C++ interface (${other}): choose another one\")
      endif()")
  endif()
endforeach()

install(TARGETS gesso EXPORT gesso-targets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(GESSO_INTERFACE STREQUAL "msvc")
  install(FILES $<TARGET_PDB_FILE:gesso> DESTINATION ${CMAKE_INSTALL_BINDIR} OPTIONAL)
endif()
include(${CMAKE_CURRENT_LIST_DIR}/GessoPublicHeaders.cmake)
foreach(header IN LISTS GESSO_PUBLIC_HEADERS)
  cmake_path(GET header PARENT_PATH folder)
  install(FILES ${PROJECT_SOURCE_DIR}/gesso/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/gesso/${folder})
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/platform/platform.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/gesso/platform)
if(WIN32)
  install(FILES ${PROJECT_SOURCE_DIR}/platform/windows/runtime.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/gesso/platform/windows)
else()
  install(FILES ${PROJECT_SOURCE_DIR}/platform/headless/headless.h ${PROJECT_SOURCE_DIR}/platform/headless/runtime.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/gesso/platform/headless)
endif()

install(EXPORT gesso-targets FILE gesso-${GESSO_INTERFACE}-targets.cmake NAMESPACE gesso:: DESTINATION ${package})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/gesso-config.cmake.in
  ${PROJECT_BINARY_DIR}/gesso-config.cmake INSTALL_DESTINATION ${package})
# A package for another C++ interface or processor does not suit, whatever its version: the search goes on.
include(${PROJECT_SOURCE_DIR}/cmake/gesso-interface.cmake)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/gesso-version.cmake COMPATIBILITY SameMinorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/gesso-config-version.cmake.in
  ${PROJECT_BINARY_DIR}/gesso-config-version.cmake @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/gesso-config.cmake ${PROJECT_BINARY_DIR}/gesso-config-version.cmake
  ${PROJECT_SOURCE_DIR}/cmake/gesso-interface.cmake ${PROJECT_BINARY_DIR}/gesso-version.cmake DESTINATION ${package})
if(CMAKE_CROSSCOMPILING AND WIN32 AND CMAKE_TOOLCHAIN_FILE MATCHES "^${PROJECT_SOURCE_DIR}/cmake/")
  # So that a host is built as the library was.
  install(FILES ${CMAKE_TOOLCHAIN_FILE} DESTINATION ${package})
  if(GESSO_INTERFACE STREQUAL "msvc")
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/msvc DESTINATION ${package} USE_SOURCE_PERMISSIONS)
  endif()
endif()
