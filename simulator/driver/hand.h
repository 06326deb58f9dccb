#pragma once

#include "driver/command.h"
#include "vocabulary/vocabulary.h"

#include <vector>

// How the person's hand moves on behalf of several commands; each takes the time that a hand takes.

namespace mac_model {

bool isOnScreen(const DrivenMac&, Point);

struct Click {
    MouseButton button = MouseButton::Left;
    int count = 1;
    std::vector<Modifier> modifiers{};
};

/// One press and release where the pointer is.
void clickHere(const DrivenMac&, const Click& = {});
/// Clicks and returns the command's reply, or a sentence when no screen is there.
Outcome clickAt(const DrivenMac&, Point, const Click& = {});
/// The same at the target, or the sentence why there is none.
Outcome clickOn(const DrivenMac&, const Arguments&, const std::expected<Target, std::string>&,
                const Click& = {});

/// Presses and waits as long as a hand does before it drags.
void pressToDrag(const DrivenMac&, Point, MouseButton, const std::vector<Modifier>& = {});
void moveInSteps(const DrivenMac&, Point to);

} // namespace mac_model
