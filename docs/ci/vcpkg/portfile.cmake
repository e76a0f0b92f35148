# Not run here. The library is a DLL whatever a port's user asks for: its window classes belong to one module.
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY)

vcpkg_from_git(
  OUT_SOURCE_PATH SOURCE_PATH
  URL "file:///path/to/your/clone"
  REF 0000000000000000000000000000000000000000 # the commit to build
)

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS -DGESSO_TESTS=OFF -DGESSO_GALLERY=OFF -DGESSO_FUZZERS=OFF
)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/gesso)
vcpkg_copy_pdbs()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
set(VCPKG_POLICY_SKIP_COPYRIGHT_CHECK enabled) # put your terms here
file(INSTALL "${CMAKE_CURRENT_LIST_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
