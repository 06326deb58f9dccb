# Builds for a Mac where there is none: Zig's clang, linker and C and C++ libraries, with the stand-ins of sdk/ for
# Apple's frameworks. ./build-mac puts Zig into build/mac-toolchain and runs CMake for each architecture.
set(CMAKE_SYSTEM_NAME Darwin)
set(TAVRIN_MAC_ARCHITECTURE aarch64 CACHE STRING "Zig's name of the architecture: aarch64 or x86_64")
set(CMAKE_SYSTEM_PROCESSOR ${TAVRIN_MAC_ARCHITECTURE})
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TAVRIN_MAC_ARCHITECTURE)

get_filename_component(tavrin_root ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
# Named for clang, because ccache judges a compiler by its name.
set(CMAKE_CXX_COMPILER ${tavrin_root}/build/mac-toolchain/bin/zig-clang++)
set(CMAKE_CXX_COMPILER_TARGET ${TAVRIN_MAC_ARCHITECTURE}-macos.13.0)

set(CMAKE_AR /usr/bin/llvm-ar-19)
set(CMAKE_RANLIB /usr/bin/llvm-ranlib-19)
set(CMAKE_NM /usr/bin/llvm-nm-19)
set(CMAKE_STRIP /usr/bin/llvm-strip-19)
set(CMAKE_INSTALL_NAME_TOOL /usr/bin/llvm-install-name-tool-19)

# Zig knows the target from its triple, so CMake shall add neither -arch nor a minimum version nor a sysroot.
set(CMAKE_OSX_ARCHITECTURES "")
set(CMAKE_OSX_DEPLOYMENT_TARGET "")
set(CMAKE_OSX_SYSROOT "")
set(TAVRIN_MAC_STAND_INS ${tavrin_root}/packaging/macos/sdk)
