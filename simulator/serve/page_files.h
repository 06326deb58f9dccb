#pragma once

#include <span>
#include <string_view>

namespace mac_model {

/// A file of simulator/web, built into the program.
struct PageFile {
    std::string_view path; // "modules/main.js"
    std::string_view contentType;
    std::string_view bytes;
};

/// In ascending order of their paths.
std::span<const PageFile> pageFiles();

/// A Mac of simulator/desktops, built in as well.
struct DesktopText {
    std::string_view name; // "notched-laptop"
    std::string_view json;
};

std::span<const DesktopText> builtInDesktops();

} // namespace mac_model
