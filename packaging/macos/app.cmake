# The Mac programs: Tavrin and tavrin-seam-check, out of the portable program and src/platform/macos/. The same for the
# cross-build with the stand-ins (presets macos-arm64 and macos-x86_64) and on a Mac with Xcode's SDK (macos-native).
file(GLOB_RECURSE MAC_PLATFORM_SOURCES CONFIGURE_DEPENDS src/platform/macos/*.mm)
add_library(tavrin_macos STATIC ${MAC_PLATFORM_SOURCES})
target_link_libraries(tavrin_macos PUBLIC tavrin_program)
target_compile_options(tavrin_macos PUBLIC $<$<COMPILE_LANGUAGE:CXX>:-fobjc-arc> -Wunguarded-availability
  -Wno-nullability-extension)

foreach(framework AppKit ApplicationServices Carbon CoreFoundation CoreGraphics CoreServices Foundation
        ServiceManagement)
  list(APPEND MAC_LIBRARIES "-framework ${framework}")
endforeach()
list(APPEND MAC_LIBRARIES -lobjc)
if(TAVRIN_MAC_STAND_INS)
  # As system headers: they extend clang as Apple's do, and -Wpedantic has no say about that.
  target_include_directories(tavrin_macos SYSTEM PUBLIC ${TAVRIN_MAC_STAND_INS}/include)
  target_link_options(tavrin_macos PUBLIC -F${TAVRIN_MAC_STAND_INS}/Frameworks -L${TAVRIN_MAC_STAND_INS}/lib)
  file(GLOB_RECURSE MAC_STUBS CONFIGURE_DEPENDS ${TAVRIN_MAC_STAND_INS}/*.tbd)
endif()
# Without notes for a debugger, which name the folders of the machine; names of functions stay, for crash reports.
target_link_options(tavrin_macos PUBLIC -Wl,-dead_strip -Wl,-S)
target_link_libraries(tavrin_macos PUBLIC ${MAC_LIBRARIES})

add_executable(Tavrin src/main_macos.mm)
target_link_libraries(Tavrin PRIVATE tavrin_macos)
target_compile_definitions(Tavrin PRIVATE TAVRIN_VERSION="${PROJECT_VERSION}")

add_executable(tavrin-seam-check src/seam_check/main_macos.mm)
target_link_libraries(tavrin-seam-check PRIVATE tavrin_macos)
target_compile_definitions(tavrin-seam-check PRIVATE TAVRIN_VERSION="${PROJECT_VERSION}")

# Everything compiled, nothing linked: what tools/mac_stubs reads.
add_custom_target(mac-objects DEPENDS $<TARGET_OBJECTS:Tavrin> $<TARGET_OBJECTS:tavrin-seam-check>)
add_dependencies(mac-objects tavrin_macos)

if(TAVRIN_MAC_STAND_INS)
  set_target_properties(Tavrin tavrin-seam-check PROPERTIES LINK_DEPENDS "${MAC_STUBS}")
endif()
