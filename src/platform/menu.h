#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavrin {

struct MenuItem {
    std::string title;
    std::string keyEquivalent; // with Command; empty is none
    bool isEnabled = true;
    bool isChecked = false;
    bool isSeparator = false;
    std::optional<std::vector<std::byte>> picture; // a PNG, shown 16 points wide; what is none shows nothing
    std::function<void()> action;                  // called after the menu has closed

    static MenuItem separator() {
        MenuItem item;
        item.isSeparator = true;
        return item;
    }
};

struct Menu {
    std::vector<MenuItem> items;
};

} // namespace tavrin
