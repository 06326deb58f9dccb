#pragma once

#include "views/view.h"
#include "views/view_builders.h"

#include <string>
#include <vector>

namespace mac_side {

/// What has happened to the views, by what their rows are called.
struct EveryViewLog {
    std::vector<std::string> pressed;
    std::vector<std::string> dropped;
    std::vector<std::string> recorder;
    int closes = 0;
};

struct EveryViewOptions {
    int rows = 12;
    bool isChecked = false;
    bool hasRecorder = true;
};

/// A tree with every kind of view. The log has to outlive it.
tavrin::View everyView(EveryViewLog& log, const EveryViewOptions& options);

} // namespace mac_side
