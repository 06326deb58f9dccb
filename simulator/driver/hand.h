#pragma once

#include "driver/command.h"

#include <vector>

// How the person's hand moves on behalf of several commands; each takes the time that a hand takes.

namespace mac_model {

bool isOnScreen(const DrivenMac&, tavrin::Point);

struct Click {
    MouseButton button = MouseButton::Left;
    int count = 1;
    std::vector<Modifier> modifiers{};
};

/// Down and up again where the pointer is, once.
void clickHere(const DrivenMac&, const Click& = {});
/// The reply of a command that clicks, or that no screen is there.
Outcome clickAt(const DrivenMac&, tavrin::Point, const Click& = {});
/// The same for what the arguments name, or why that can't be clicked.
Outcome clickOn(const DrivenMac&, const Arguments&, const std::expected<Target, std::string>&,
                const Click& = {});

/// Presses and waits as long as a hand does before it drags.
void pressToDrag(const DrivenMac&, tavrin::Point, MouseButton, const std::vector<Modifier>& = {});
void moveInSteps(const DrivenMac&, tavrin::Point to);

} // namespace mac_model
