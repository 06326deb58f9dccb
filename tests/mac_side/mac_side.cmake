# The Mac side, built for this machine against GNUstep (docs/mac-app.md, "Executed on Linux"): `./test --mac-side`.
# Nothing here is part of a program that ships.
set(MAC_SIDE ${CMAKE_CURRENT_LIST_DIR})
set(SHIM ${MAC_SIDE}/shim)

execute_process(COMMAND llvm-config-19 --includedir OUTPUT_VARIABLE LLVM_INCLUDES OUTPUT_STRIP_TRAILING_WHITESPACE)
file(GLOB ARC_PLUGIN_SOURCES CONFIGURE_DEPENDS tests/mac_side/plugin/*.cpp)
add_library(arc-plugin MODULE ${ARC_PLUGIN_SOURCES})
target_include_directories(arc-plugin SYSTEM PRIVATE ${LLVM_INCLUDES})
target_compile_options(arc-plugin PRIVATE -O1 -fno-sanitize=all -fno-exceptions -Wall -Wextra -Werror)

# GCC's own folder has its Objective-C runtime, and the headers of it beside others that clang mustn't see.
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=libobjc.so OUTPUT_VARIABLE OBJC_LIBRARY
  OUTPUT_STRIP_TRAILING_WHITESPACE)
cmake_path(REPLACE_FILENAME OBJC_LIBRARY include OUTPUT_VARIABLE GCC_INCLUDES)
file(COPY ${GCC_INCLUDES}/objc DESTINATION ${CMAKE_BINARY_DIR}/objc-headers)
# One function there reads an object as the structure that it isn't for ARC.
file(READ ${GCC_INCLUDES}/objc/runtime.h RUNTIME_HEADER)
string(REPLACE "object->class_pointer;" "*(Class *)(__bridge void *)object;" RUNTIME_HEADER "${RUNTIME_HEADER}")
file(CONFIGURE OUTPUT objc-headers/objc/runtime.h CONTENT "${RUNTIME_HEADER}" @ONLY)

add_library(gnustep INTERFACE)
target_compile_options(gnustep INTERFACE -fobjc-runtime=gcc -fblocks -fexceptions -fobjc-exceptions
  -fconstant-string-class=NSConstantString "SHELL:-include ${SHIM}/include/darwin.h")
target_compile_definitions(gnustep INTERFACE _GNU_SOURCE GNUSTEP GNUSTEP_BASE_LIBRARY=1 GNU_GUI_LIBRARY=1 GNU_RUNTIME=1
  _NATIVE_OBJC_EXCEPTIONS)
# In this order: ours first, then GNUstep's, and the stand-ins for the frameworks that GNUstep doesn't have.
target_include_directories(gnustep SYSTEM INTERFACE ${SHIM}/include /usr/include/GNUstep ${CMAKE_BINARY_DIR}/objc-headers
  packaging/macos/sdk/include)
# Differences between the headers of AppKit and of GNUstep, which a build for the Mac doesn't see.
target_compile_options(gnustep INTERFACE -Wno-gnu -Wno-nullability-extension -Wno-property-attribute-mismatch
  -Wno-objc-property-implementation -Wno-objc-protocol-method-implementation -Wno-incompatible-pointer-types
  -Wno-deprecated-anon-enum-enum-conversion)
# Before GNUstep's base, which has functions of the same names that do nothing.
find_library(BLOCKS_RUNTIME libBlocksRuntime.a REQUIRED)
target_link_libraries(gnustep INTERFACE tavrin_options ${BLOCKS_RUNTIME} gnustep-gui gnustep-base ${OBJC_LIBRARY} dl m)

file(GLOB RUNTIME_SOURCES CONFIGURE_DEPENDS tests/mac_side/shim/counted/*.mm)
file(GLOB SHIM_SOURCES CONFIGURE_DEPENDS tests/mac_side/shim/*.mm)
file(GLOB_RECURSE MAC_PLATFORM_SOURCES CONFIGURE_DEPENDS src/platform/macos/*.mm)
file(GLOB MAC_SIDE_TESTS CONFIGURE_DEPENDS tests/mac_side/*.mm)
# The scenarios and the seam check run once more, on the Mac side over the modelled Mac.
file(GLOB SCENARIOS CONFIGURE_DEPENDS tests/scenarios/*_test.cpp)
list(APPEND SCENARIOS tests/seam/seam_contract_test.cpp)
list(APPEND SCENARIOS tests/support/tavrin_mac.cpp tests/support/temporary_folder.cpp)

# Without ARC: it is these that count references.
add_library(mac-side-runtime OBJECT ${RUNTIME_SOURCES})
target_link_libraries(mac-side-runtime PRIVATE gnustep tavrin_program)

add_library(mac-side-platform OBJECT ${MAC_PLATFORM_SOURCES} ${SHIM_SOURCES})
target_link_libraries(mac-side-platform PRIVATE gnustep tavrin_program)

add_library(mac-side-scenarios OBJECT ${SCENARIOS})
target_include_directories(mac-side-scenarios PRIVATE tests)
target_link_libraries(mac-side-scenarios PRIVATE mac_model GTest::gtest GTest::gtest_main)
target_precompile_headers(mac-side-scenarios PRIVATE ${STANDARD_HEADERS} <filesystem> <nlohmann/json.hpp> <gtest/gtest.h>)

add_executable(mac-side-tests ${MAC_SIDE_TESTS})
target_include_directories(mac-side-tests PRIVATE tests)
target_link_libraries(mac-side-tests PRIVATE mac-side-runtime mac-side-platform mac-side-scenarios gnustep mac_model
  GTest::gtest)
# The compiler calls the classes of blocks by names that aren't classes' names for GCC's runtime.
target_link_options(mac-side-tests PRIVATE -no-pie -rdynamic
  -Wl,--defsym=_NSConcreteStackBlock=_OBJC_CLASS_TavrinStackBlock
  -Wl,--defsym=_NSConcreteMallocBlock=_OBJC_CLASS_TavrinMallocBlock
  -Wl,--defsym=_NSConcreteGlobalBlock=_OBJC_CLASS_TavrinGlobalBlock)

foreach(target mac-side-platform mac-side-tests)
  target_compile_options(${target} PRIVATE -fplugin=$<TARGET_FILE:arc-plugin>)
endforeach()
# The sanitizers watch what only runs here: the rest has them in ./test, and would take four times as long.
foreach(target mac-side-runtime mac-side-platform mac-side-tests)
  target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
endforeach()
target_link_options(mac-side-tests PRIVATE -fsanitize=address,undefined)
# The plugin has to be there before, and another plugin makes other objects.
set_source_files_properties(${MAC_PLATFORM_SOURCES} ${SHIM_SOURCES} ${MAC_SIDE_TESTS} PROPERTIES
  OBJECT_DEPENDS ${CMAKE_BINARY_DIR}/libarc-plugin.so)
