#pragma once

#include "seam/passed_on.h"
#include "seam/self_check_program.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

// The desktop on which lies are told unless they say otherwise.
inline constexpr double screenWidth = 1512;
inline constexpr double screenHeight = 982;

inline tavrin::Rect flipped(const tavrin::Rect& rect) {
    return {rect.x, screenHeight - rect.maxY(), rect.width, rect.height};
}

/// A platform that breaks promises, and the checks of a family that must notice.
struct PlantedLie {
    std::string name;
    std::string_view family;
    std::vector<std::string_view> broken;
    /// The platform with the lie in it, which lives as long as the pointer.
    std::function<tavrin::Platform(const tavrin::Platform& real, std::shared_ptr<void>& lie)> tell;
    std::string desktop = "notched-laptop";
};

/// Gives the family of the platform that is asked for by type.
struct AnyFamily {
    operator tavrin::Scheduler&() const { return real.scheduler; }

    operator tavrin::Application&() const { return real.application; }

    operator tavrin::Accessibility&() const { return real.accessibility; }

    operator tavrin::Defaults&() const { return real.defaults; }

    operator tavrin::EventMonitors&() const { return real.eventMonitors; }

    operator tavrin::Events&() const { return real.events; }

    operator tavrin::HotKeys&() const { return real.hotKeys; }

    operator tavrin::Keyboard&() const { return real.keyboard; }

    operator tavrin::LoginItem&() const { return real.loginItem; }

    operator tavrin::Presentation&() const { return real.presentation; }

    operator tavrin::Screens&() const { return real.screens; }

    operator tavrin::StatusItems&() const { return real.statusItems; }

    operator tavrin::Text&() const { return real.text; }

    operator tavrin::VisibilityService&() const { return real.visibilityService; }

    operator tavrin::WindowServer&() const { return real.windowServer; }

    operator tavrin::Workspace&() const { return real.workspace; }

    operator const tavrin::Platform&() const { return real; }

    const tavrin::Platform& real;
};

template <class Lie>
PlantedLie lie(std::string name, std::string_view family, std::vector<std::string_view> broken,
               std::string desktop = "notched-laptop") {
    const auto tell = [](const tavrin::Platform& real, std::shared_ptr<void>& kept) {
        const auto made = std::make_shared<Lie>(AnyFamily{real});
        kept = made;
        return with(*made, real);
    };
    return {std::move(name), family, std::move(broken), tell, std::move(desktop)};
}

} // namespace mac_model
