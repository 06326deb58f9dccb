// Measures what keeping 500 pins costs, each with an icon as large as a real one, and holds it against the
// budgets. Built in release; exits with 1 when one is exceeded.

#include "pins/store/pinned_action_store.h"
#include "seam/system/text_icu.h"
#include "support/counting_defaults.h"

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <iomanip>
#include <iostream>
#include <limits>
#include <string>

namespace {

using namespace tavrin;

constexpr int pinCount = 500;
constexpr std::size_t iconBytes = 2500; // what a detailed icon of 32 × 32 pixels takes
constexpr double budgetMilliseconds = 5;

double processorMilliseconds() { return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC; }

/// The least of several rounds, because disturbances only add time.
template <class Act>
double leastMilliseconds(const Act& act) {
    double least = std::numeric_limits<double>::max();
    for (int round = 0; round < 20; ++round) {
        const auto began = processorMilliseconds();
        act();
        least = std::min(least, processorMilliseconds() - began);
    }
    return least;
}

PinnedAction pinNumber(int number) {
    PinnedAction pin;
    pin.id.bytes = {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number / 256)};
    pin.name = "Export “Quarterly Report " + std::to_string(number) + "” as PDF…";
    pin.bundleIdentifier = "org.example.application" + std::to_string(number % 40);
    pin.applicationName = "Application " + std::to_string(number % 40);
    pin.statusItem = {"org.example.item", "Example", 1};
    pin.path = {{"File", "file"}, {"Export", {}}, {pin.name, "export:" + std::to_string(number)}};
    pin.lastFailure = "Application isn't running. Open it and try again.";
    pin.hotKey = HotKeyShortcut(4, controlKeyFlag | optionKeyFlag);
    pin.menuOrigin = PinnedMenuOrigin::AppMenuBar;
    pin.iconPng.emplace(iconBytes);
    for (auto& byte : *pin.iconPng) byte = static_cast<std::byte>(std::rand());
    return pin;
}

bool report(const std::string& what, double measured) {
    const bool isWithin = measured <= budgetMilliseconds;
    std::cout << std::left << std::setw(66) << what << std::right << std::setw(11) << measured << " of "
              << std::setw(9) << budgetMilliseconds << " ms" << (isWithin ? "" : " EXCEEDED") << '\n';
    return isWithin;
}

} // namespace

int main() {
    const auto text = mac_model::makeIcuText();
    CountingDefaults defaults;
    PinnedActionStore store(defaults, *text);
    for (int i = 0; i < pinCount; ++i) store.add(pinNumber(i));
    const auto last = store.pins().back().id;

    std::cout << std::setprecision(3);
    bool isComplete = true;
    const auto load = leastMilliseconds(
        [&] { isComplete = isComplete && PinnedActionStore(defaults, *text).pins().size() == pinCount; });
    const auto save = leastMilliseconds([&] { store.rename(last, "Another name"); });
    const bool isLoadWithin = report("500 pins with icons: load", load);
    const bool isSaveWithin = report("500 pins with icons: save", save);
    return isLoadWithin && isSaveWithin && isComplete ? 0 : 1;
}
