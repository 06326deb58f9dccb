#include "desktop/desktop_readers.h"
#include "vocabulary/vocabulary.h"

#include <algorithm>
#include <cmath>

namespace mac_model {
namespace {

using nlohmann::json;

constexpr std::size_t screensMax = 16;
constexpr double coordinateMax = 100000;
constexpr NumberRange scales{0.5, 4};
constexpr NumberRange menuBarHeights{1, 99};

bool liesWithin(const Rect& inner, const Rect& outer) {
    return inner.minX() >= outer.minX() && inner.maxX() <= outer.maxX() && inner.minY() >= outer.minY() &&
           inner.maxY() <= outer.maxY();
}

void checkFrame(ObjectReader& reader, const Rect& frame) {
    const double extent = std::max(
        {std::abs(frame.minX()), std::abs(frame.maxX()), std::abs(frame.minY()), std::abs(frame.maxY())});
    if (extent > coordinateMax) reader.refuse("frame", "lies more than 100000 points from the origin");
}

void checkArea(ObjectReader& reader, std::string_view key, const ScreenSpec& screen, const Rect& area) {
    if (!liesWithin(area, screen.frame))
        reader.refuse(key, "lies outside the frame of its screen");
    else if (area.minY() != screen.frame.minY())
        reader.refuse(key, "must lie along the top edge of its screen");
}

void checkAreas(ObjectReader& reader, const ScreenSpec& screen) {
    if (!screen.leftMenuBarArea && !screen.rightMenuBarArea) return;
    if (!screen.hasNotch()) {
        reader.refuse(screen.leftMenuBarArea ? "rightMenuBarArea" : "leftMenuBarArea",
                      "is missing beside the other area");
        return;
    }
    checkArea(reader, "leftMenuBarArea", screen, *screen.leftMenuBarArea);
    checkArea(reader, "rightMenuBarArea", screen, *screen.rightMenuBarArea);
    if (screen.leftMenuBarArea->maxX() > screen.rightMenuBarArea->minX())
        reader.refuse("rightMenuBarArea", "must lie right of the left area without overlapping it");
}

ScreenSpec readScreen(const json& value, std::string pointer, MacOSVersion version, FirstFault& faults) {
    ObjectReader reader(value, std::move(pointer), faults);
    ScreenSpec screen;
    screen.frame = reader.frame("frame", Need::Required).value_or(Rect{});
    checkFrame(reader, screen.frame);
    screen.scale = reader.number("scale", scales).value_or(screen.scale);
    screen.leftMenuBarArea = reader.frame("leftMenuBarArea");
    screen.rightMenuBarArea = reader.frame("rightMenuBarArea");
    checkAreas(reader, screen);
    screen.menuBarHeight =
        reader.number("menuBarHeight", menuBarHeights).value_or(menuBarHeightOf(screen, version));
    reader.refuseOthers();
    return screen;
}

void refuseOverlap(const std::vector<ScreenSpec>& screens, const std::string& pointer, FirstFault& faults) {
    for (std::size_t later = 1; later < screens.size(); ++later)
        for (std::size_t earlier = 0; earlier < later; ++earlier)
            if (screens[later].frame.intersects(screens[earlier].frame))
                faults.note(pointerTo(pointerTo(pointer, later), "frame"),
                            "overlaps the frame of " + pointerTo(pointer, earlier));
}

/// The other screens keep their order.
void putPrimaryFirst(std::vector<ScreenSpec>& screens, const std::string& pointer, FirstFault& faults) {
    const auto primary = std::find_if(screens.begin(), screens.end(), [](const ScreenSpec& screen) {
        return screen.frame.origin() == Point{0, 0};
    });
    if (primary == screens.end())
        faults.note(pointer, "has no screen with its top left corner at 0, 0");
    else
        std::rotate(screens.begin(), primary, primary + 1);
}

} // namespace

double menuBarHeightOf(const ScreenSpec& screen, MacOSVersion version) {
    const bool sinceTahoe = version.major >= 26;
    if (!screen.hasNotch()) return sinceTahoe ? 30 : 24;
    const double inset = std::max(screen.leftMenuBarArea->height, screen.rightMenuBarArea->height);
    return sinceTahoe ? inset : std::max(37.0, inset);
}

std::vector<ScreenSpec> readScreens(const json& value, const std::string& pointer, MacOSVersion version,
                                    FirstFault& faults) {
    std::vector<ScreenSpec> screens;
    if (!value.is_array()) {
        faults.note(pointer, "must be an array, not " + std::string(kindOf(value)));
        return screens;
    }
    if (value.size() > screensMax)
        faults.note(pointer, "has " + std::to_string(value.size()) + " entries; 16 is the most");
    for (std::size_t i = 0; i < std::min(value.size(), screensMax); ++i)
        screens.push_back(readScreen(value[i], pointerTo(pointer, i), version, faults));
    refuseOverlap(screens, pointer, faults);
    putPrimaryFirst(screens, pointer, faults);
    return screens;
}

} // namespace mac_model
