#include "accessibility/accessibility_onboarding.h"
#include "views/view_builders.h"

#include <array>
#include <string>
#include <utility>

namespace tavrin {

namespace {

constexpr double contentWidth = 440;

constexpr std::array<const char*, 4> steps{
    "Go to Privacy & Security",
    "Click Accessibility",
    "Turn on the Tavrin switch, or add Tavrin with +",
    "Enter your password if asked",
};

View stepRow(std::size_t number, std::string step) {
    auto badge = text(std::to_string(number) + ".", {.tone = Tone::Accent});
    badge.width = 18;
    return row({std::move(badge), text(std::move(step))}, {.spacing = 6});
}

View stepList() {
    std::vector<View> rows;
    for (std::size_t i = 0; i < steps.size(); ++i) rows.push_back(stepRow(i + 1, steps[i]));
    return card(std::move(rows), {.spacing = 6, .padding = 12});
}

View waitingView(std::function<void()> openSettings) {
    auto open = button("Open System Settings", std::move(openSettings),
                       {.style = ButtonStyle::Prominent, .isDefault = true});
    return column(
        {symbol("hand.raised.fill", 40, Tone::Accent),
         text("Allow Tavrin to tidy your menu bar", {.style = TextStyle::Title, .isCentered = true}),
         text("Tavrin needs Accessibility access to move other apps' menu bar items.",
              {.tone = Tone::Secondary, .isCentered = true}),
         std::move(open), stepList(),
         text("Tavrin already in the list but not working? Select it, remove it with the minus button, "
              "then add it again.",
              {.style = TextStyle::Caption, .tone = Tone::Secondary, .isCentered = true}),
         row({progress(),
              text("Waiting for access. This window updates on its own.", {.tone = Tone::Secondary})},
             {.spacing = 8})},
        {.spacing = 16, .padding = 28, .width = contentWidth, .isCentered = true});
}

View grantedView() {
    return column({symbol("checkmark.circle.fill", 56, Tone::Positive),
                   text("Accessibility is on. Tavrin is starting in your menu bar.",
                        {.style = TextStyle::Heading, .isCentered = true})},
                  {.spacing = 20, .padding = 48, .width = contentWidth, .isCentered = true});
}

} // namespace

View accessibilityOnboardingView(AccessibilityOnboardingModel::Phase phase,
                                 std::function<void()> openSettings) {
    if (phase == AccessibilityOnboardingModel::Phase::granted) return grantedView();
    return waitingView(std::move(openSettings));
}

} // namespace tavrin
