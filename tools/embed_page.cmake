# cmake -DWEB=… -DDESKTOPS=… -DOUTPUT=… -P tools/embed_page.cmake: writes the page's files and the desktop files as C++.
# Only what a browser asks for goes in; the rest of simulator/web (notes, makers) stays out.
set(types "html=text/html\\; charset=utf-8" "js=text/javascript\\; charset=utf-8" "css=text/css\\; charset=utf-8" "svg=image/svg+xml")

set(arrays "")
set(pages "")
set(desktops "")
set(number 0)

macro(embed file)
  file(READ "${file}" bytes HEX)
  string(LENGTH "${bytes}" length)
  math(EXPR length "${length} / 2")
  string(REGEX REPLACE "(..)" "0x\\1," bytes "${bytes}")
  # Twenty bytes a line.
  string(REGEX REPLACE "(....................................................................................................)" "\\1\n" bytes "${bytes}")
  math(EXPR number "${number} + 1")
  string(APPEND arrays "constexpr unsigned char file${number}[] = {\n${bytes}0};\n")
  set(view "textOf(file${number}, ${length})")
endmacro()

file(GLOB_RECURSE files RELATIVE "${WEB}" "${WEB}/*")
list(SORT files)
foreach(file IN LISTS files)
  get_filename_component(suffix "${file}" LAST_EXT)
  string(REGEX REPLACE "^\\." "" suffix "${suffix}")
  foreach(type IN LISTS types)
    if(type MATCHES "^${suffix}=(.*)$")
      set(contentType "${CMAKE_MATCH_1}")
      embed("${WEB}/${file}")
      string(APPEND pages "    PageFile{\"${file}\", \"${contentType}\", ${view}},\n")
    endif()
  endforeach()
endforeach()

file(GLOB files "${DESKTOPS}/*.json")
list(SORT files)
foreach(file IN LISTS files)
  get_filename_component(name "${file}" NAME_WE)
  embed("${file}")
  string(APPEND desktops "    DesktopText{\"${name}\", ${view}},\n")
endforeach()

file(WRITE "${OUTPUT}" "// Made by tools/embed_page.cmake.
#include \"serve/page_files.h\"

#include <array>
#include <cstddef>

namespace mac_model {

namespace {

${arrays}
std::string_view textOf(const unsigned char* bytes, std::size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

} // namespace

std::span<const PageFile> pageFiles() {
    static const std::array files{
${pages}    };
    return files;
}

std::span<const DesktopText> builtInDesktops() {
    static const std::array desktops{
${desktops}    };
    return desktops;
}

} // namespace mac_model
")
