#pragma once

#include "views/view.h"

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
    std::optional<IconOfApplication> icon; // 16 points
    std::function<void()> action;          // called after the menu has closed

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
