#include "platform/screens.h"
#include "platform/window_server.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/words.h"

namespace tavrin::seam_check {

namespace {

constexpr double menuBarHeightMax = 80; // points; more than any menu bar has

Verdict primaryComesFirst(const Platform& platform) {
    const auto screens = platform.screens.screens();
    if (screens.empty()) return failed("There is no screen.");
    const auto& frame = screens.front().frame;
    if (frame.origin() != Point{0, 0}) return failed("The first screen is " + said(frame) + ".");
    return passed("The first of " + counted(screens.size(), "screen") + " is " + said(frame) + ".");
}

Verdict framesAreApart(const Platform& platform) {
    const auto screens = platform.screens.screens();
    Findings findings;
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const auto& frame = screens[i].frame;
        const bool isWhole = frame.isFinite() && frame.width >= 1 && frame.height >= 1;
        findings.expect(isWhole, "a screen is " + said(frame));
        findings.expect(screens[i].scale >= 1 && screens[i].scale <= 4,
                        "a screen has the scale " + said(screens[i].scale));
        for (std::size_t j = 0; j < i; ++j)
            findings.expect(!frame.intersects(screens[j].frame),
                            said(frame) + " lies over " + said(screens[j].frame));
    }
    return findings.verdict(counted(screens.size(), "screen") + " apart from each other.");
}

Verdict menuBarsHaveHeights(const Platform& platform) {
    const auto screens = platform.screens.screens();
    Findings findings;
    std::string seen = "Heights:";
    for (const auto& screen : screens) {
        findings.expect(screen.menuBarHeight >= 0 && screen.menuBarHeight <= menuBarHeightMax,
                        "a menu bar is " + said(screen.menuBarHeight) + " high");
        seen += " " + said(screen.menuBarHeight);
    }
    findings.expect(!screens.empty() && screens.front().menuBarHeight > 0,
                    "the primary screen has no menu bar");
    return findings.verdict(seen + ".");
}

void lookAtNotch(Findings& findings, const Screen& screen) {
    const auto& frame = screen.frame;
    const auto& left = *screen.leftMenuBarArea;
    const auto& right = *screen.rightMenuBarArea;
    for (const auto& area : {left, right}) {
        findings.expect(area.minY() == frame.minY(), said(area) + " isn't at the top of " + said(frame));
        findings.expect(area.width > 0 && area.height > 0 && area.height <= menuBarHeightMax,
                        said(area) + " is no part of a menu bar");
    }
    findings.expect(left.minX() >= frame.minX() && right.maxX() <= frame.maxX() + 1,
                    "the parts reach beyond " + said(frame));
    findings.expect(left.maxX() < right.minX(), said(left) + " isn't left of " + said(right));
}

Verdict notchLiesBetween(const Platform& platform) {
    std::size_t notches = 0;
    Findings findings;
    for (const auto& screen : platform.screens.screens()) {
        findings.expect(screen.leftMenuBarArea.has_value() == screen.rightMenuBarArea.has_value(),
                        "a notch has a menu bar on one side only");
        if (!screen.leftMenuBarArea || !screen.rightMenuBarArea) continue;
        ++notches;
        lookAtNotch(findings, screen);
    }
    if (notches == 0 && findings.areNone()) return inapplicable("No screen has a notch.");
    return findings.verdict(counted(notches, "screen") + " with a notch.");
}

/// Where this fails although the menu bar is there to be seen, the program takes its bar for hidden.
Verdict visibleBarIsListed(const Platform& platform) {
    if (!platform.screens.areShown()) return failed("The screens are said to be asleep, locked or away.");
    std::string seen;
    for (const auto& window : platform.windowServer.onScreenWindows()) {
        const bool isOfBar =
            window.layer == OnScreenWindow::menuBarLayer || window.layer == OnScreenWindow::statusItemLayer;
        if (isOfBar && window.frame.height <= menuBarHeightMax)
            seen += (seen.empty() ? "" : ", ") + std::to_string(window.layer) + " at " + said(window.frame);
    }
    if (seen.empty()) return failed("No window on the screens has a layer of the menu bar.");
    return passed("Layers: " + seen + ".");
}

} // namespace

std::vector<Check> screensChecks() {
    constexpr auto family = "screens";
    return {
        reads(family, "The primary screen comes first, and its top left is the origin.", primaryComesFirst),
        reads(family, "Screens have sizes and scales, and lie apart from each other.", framesAreApart),
        reads(family, "Menu bars have the heights of menu bars.", menuBarsHaveHeights),
        reads(family, "The menu bar's parts beside a notch lie at the top edge, left and right of it.",
              notchLiesBetween),
        reads(family, "While the menu bar is to be seen, windows of it are on the screens, which are shown.",
              visibleBarIsListed),
    };
}

} // namespace tavrin::seam_check
