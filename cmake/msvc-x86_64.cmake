# Cross-compiles for 64-bit Windows with the C++ interface of Microsoft's compiler, with Debian's packages alone:
# clang, lld and the headers of libc++, over Wine's headers of the platform and of the C runtime. Programs need
# the system's DLLs only: ucrtbase.dll is part of Windows since version 10.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(llvm /usr/lib/llvm-19)
set(CMAKE_C_COMPILER ${llvm}/bin/clang)
set(CMAKE_CXX_COMPILER ${llvm}/bin/clang++)
set(CMAKE_RC_COMPILER ${llvm}/bin/llvm-rc)
set(CMAKE_AR ${llvm}/bin/llvm-ar CACHE FILEPATH "")
set(CMAKE_LINKER ${llvm}/bin/lld-link CACHE FILEPATH "")
set(CMAKE_MT ${llvm}/bin/llvm-mt CACHE FILEPATH "")
set(CMAKE_C_COMPILER_TARGET x86_64-pc-windows-msvc)
set(CMAKE_CXX_COMPILER_TARGET x86_64-pc-windows-msvc)
# CMake would find it out by a program that it links without the libraries below.
set(CMAKE_SIZEOF_VOID_P 8)

# Installed, what the toolchain needs stands beside it.
set(support ${CMAKE_CURRENT_LIST_DIR}/msvc)
if(NOT EXISTS ${support})
  set(support ${CMAKE_CURRENT_LIST_DIR}/../platform/msvc)
endif()
set(GESSO_MSVC_SYSROOT ${CMAKE_BINARY_DIR}/msvc CACHE PATH "Import libraries and the runtime's start")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES GESSO_MSVC_SYSROOT)
execute_process(COMMAND ${support}/make-sysroot.sh ${llvm} ${GESSO_MSVC_SYSROOT} COMMAND_ERROR_IS_FATAL ANY)

set(wine /usr/include/wine/wine)
# Folders may have spaces in their names.
set(c_headers "-isystem ${llvm}/lib/clang/19/include -isystem \"${support}/include\" \
-isystem ${wine}/msvcrt -isystem ${wine}/windows")
# Wine's header declares the last of these without its intrinsic form.
set(common "-fms-compatibility-version=19.30 -fms-extensions -nostdinc -D_DLL -D_MT \
-DWINE_UNICODE_NATIVE -D_InterlockedCompareExchange128=no_compare_exchange_128")
set(CMAKE_C_FLAGS_INIT "${common} ${c_headers}")
set(CMAKE_RC_FLAGS_INIT "--target=x86_64-pc-windows-msvc ${common} ${c_headers}")
set(CMAKE_CXX_FLAGS_INIT
    "${common} -isystem \"${GESSO_MSVC_SYSROOT}/config\" -isystem ${llvm}/include/c++/v1 ${c_headers}")
set(link "-fuse-ld=lld -nostdlib -Xlinker /nodefaultlib -Xlinker /include:_tls_used -Xlinker \"/libpath:${GESSO_MSVC_SYSROOT}/lib\"")
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link}")
# The runtime, behind all else, and what programs of that compiler are linked to without being told.
set(CMAKE_C_STANDARD_LIBRARIES "-Xlinker runtime.lib -Xlinker ucrtbase.lib -lkernel32 -luser32 -lgdi32 -lcomdlg32 -ladvapi32 -lshell32 -lole32 -loleaut32" CACHE STRING "")
set(CMAKE_CXX_STANDARD_LIBRARIES "${CMAKE_C_STANDARD_LIBRARIES}" CACHE STRING "")
set(CMAKE_MSVC_RUNTIME_LIBRARY "")

# Hosts' packages, Gesso's own among them, are found by the prefix path that they are given.
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)
