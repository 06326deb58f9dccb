// The same trees of views laid out by AppKit as GNUstep has it and by the modelled Mac. Their fonts differ,
// so what is compared is what stands in what, in which order, and where Tab leads.
#include "mac_side/every_view.h"
#include "mac_side/mac_side_fixture.h"
#include "platform/macos/support/conversions.h"
#include "platform/presentation.h"
#include "screen/keyboard_focus.h"
#include "views/laid_out_view.h"

#include <memory>
#include <string>
#include <vector>

namespace mac_side {

namespace {

using mac_model::LaidOutView;

struct Placed {
    Rect frame;
    std::vector<Placed> children;
};

Placed placed(const LaidOutView& view) {
    Placed made{view.frame, {}};
    for (const auto& child : view.children) made.children.push_back(placed(child));
    return made;
}

Placed placed(TavrinViewNode* node) {
    Placed made{macos::toRect([node.window convertRectToScreen:[node convertRect:node.bounds toView:nil]]),
                {}};
    for (TavrinViewNode* child in node.childNodes) made.children.push_back(placed(child));
    return made;
}

bool isWithin(const Rect& inner, const Rect& outer) {
    constexpr double rounding = 1;
    return inner.x >= outer.x - rounding && inner.maxX() <= outer.maxX() + rounding &&
           inner.y >= outer.y - rounding && inner.maxY() <= outer.maxY() + rounding;
}

std::string relation(const Rect& before, const Rect& after) {
    constexpr double rounding = 1;
    if (after.y >= before.maxY() - rounding) return "below";
    return after.x >= before.maxX() - rounding ? "right" : "over";
}

/// A line a view, indented by how deep it stands.
std::string told(const Placed& view, const std::string& indent = "") {
    std::string lines;
    for (std::size_t n = 0; n < view.children.size(); ++n) {
        const auto& child = view.children[n];
        lines += indent + (isWithin(child.frame, view.frame) ? "within" : "beyond");
        if (n > 0) lines += " " + relation(view.children[n - 1].frame, child.frame);
        lines += "\n" + told(child, indent + "  ");
    }
    return lines;
}

class AgreementTest : public MacSideTest {
  protected:
    NSWindow* show(const EveryViewOptions& options) {
        pooled([&] {
            shown->setContent(everyView(log, options));
            shown->makeKeyAndOrderFront();
        });
        EXPECT_TRUE(until([this] { return shown->isVisible(); }));
        return windowTitled("Agreement");
    }

    LaidOutView modelled(const EveryViewOptions& options) {
        const View view = everyView(log, options);
        const Size size = mac_model::measured(view, 360);
        return mac_model::laidOut(view, {0, 0, size.width, size.height});
    }

    EveryViewLog log;
    std::unique_ptr<Window> shown = platform.presentation.makeWindow("Agreement", [] {});
};

TEST_F(AgreementTest, viewsStandInEachOtherAndInTheSameOrder) {
    for (const EveryViewOptions& options : {EveryViewOptions{}, EveryViewOptions{.rows = 1},
                                            EveryViewOptions{.rows = 0, .hasRecorder = false}}) {
        NSWindow* window = show(options);
        EXPECT_EQ(told(placed(surfaceIn(window).rootNode)), told(placed(modelled(options)))) << options.rows;
    }
}

TEST_F(AgreementTest, tabLeadsRoundTheSameViews) {
    NSWindow* window = show({.rows = 3});
    mac_model::Surface surface;
    mac_model::showAnew(surface, modelled({.rows = 3}));
    for (int n = 0; n < 14; ++n) {
        press(window, tabKey);
        mac_model::moveFocus(surface, FocusStep::Next);
        EXPECT_EQ(macos::focusedPath(surfaceIn(window).rootNode), surface.focus.standsAt()) << n;
    }
}

} // namespace

} // namespace mac_side
