#include "platform/screens.h"
#include "platform/window_server.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/words.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace tavrin::seam_check {

namespace {

using WindowServerMenuBar::Functions;
using WindowServerMenuBar::WindowNumber;

constexpr std::size_t windowsMax = 4096;

Verdict absent() { return skipped("This macOS lacks one of the four private functions."); }

/// The numbers of the menu bar's windows; none when the window server refuses.
std::optional<std::vector<WindowNumber>> listedWindows(Functions& functions) {
    std::vector<WindowNumber> numbers(windowsMax);
    const auto count = functions.processMenuBarWindowList(functions.mainConnection(), numbers);
    if (!count || *count < 0) return std::nullopt;
    numbers.resize(std::min(numbers.size(), static_cast<std::size_t>(*count)));
    return numbers;
}

Verdict connectionStays(const Platform& platform) {
    auto* functions = platform.windowServer.menuBarFunctions();
    if (!functions) return absent();
    const auto connection = functions->mainConnection();
    Findings findings;
    findings.expect(connection != 0, "there is no connection");
    findings.expect(connection == functions->mainConnection(), "the connection changes");
    findings.expect(functions == platform.windowServer.menuBarFunctions(), "the functions move");
    return findings.verdict("All four functions are there.");
}

Verdict countsFit(const Platform& platform) {
    auto* functions = platform.windowServer.menuBarFunctions();
    if (!functions) return absent();
    const auto all = functions->windowCount(functions->mainConnection());
    const auto listed = listedWindows(*functions);
    if (!all) return failed("Counting windows failed with " + std::to_string(all.error()) + ".");
    if (!listed) return failed("The menu bar's windows could not be listed.");
    const auto seen =
        std::to_string(*all) + " windows, " + std::to_string(listed->size()) + " of them the menu bar's";
    const bool isLikely = !listed->empty() && static_cast<std::size_t>(*all) >= listed->size();
    return isLikely ? passed(seen + ".") : failed(seen + ".");
}

Verdict listStaysInItsRoom(const Platform& platform) {
    auto* functions = platform.windowServer.menuBarFunctions();
    if (!functions) return absent();
    constexpr WindowNumber untouched = 0xFEEDFACE;
    std::array<WindowNumber, 4> numbers;
    numbers.fill(untouched);
    const auto count =
        functions->processMenuBarWindowList(functions->mainConnection(), std::span(numbers).first(1));
    Findings findings;
    findings.expect(count.has_value(), "listing into room for one window failed");
    findings.expect(numbers[0] != untouched, "nothing was written");
    findings.expect(std::ranges::count(numbers, untouched) == 3, "more was written than fits");
    return findings.verdict("One number was written.");
}

bool isInMenuBar(const Rect& rect, const Screen& screen) {
    const Rect bar{screen.frame.x, screen.frame.y, screen.frame.width, std::max(1.0, screen.menuBarHeight)};
    return rect.intersects(bar) && rect.height <= 2 * bar.height;
}

Verdict windowsAreInTheMenuBar(const Platform& platform) {
    auto* functions = platform.windowServer.menuBarFunctions();
    if (!functions) return absent();
    const auto screens = platform.screens.screens();
    std::size_t inBar = 0;
    Findings findings;
    const auto listed = listedWindows(*functions).value_or(std::vector<WindowNumber>{});
    for (const auto number : listed) {
        const auto rect = functions->screenRect(functions->mainConnection(), number);
        if (!rect) continue; // it has gone meanwhile
        findings.expect(rect->isFinite(), "a window has no place");
        inBar += std::ranges::any_of(screens, [&](const auto& one) { return isInMenuBar(*rect, one); });
    }
    findings.expect(inBar > 0, "none of " + counted(listed.size(), "window") +
                                   " lies at the top of a screen, counted from the top left");
    return findings.verdict(std::to_string(inBar) + " of " + counted(listed.size(), "window") +
                            " lie at the top of a screen.");
}

Verdict unknownWindowsFail(const Platform& platform) {
    auto* functions = platform.windowServer.menuBarFunctions();
    if (!functions) return absent();
    const auto rect = functions->screenRect(functions->mainConnection(), 0x7FFFFFF0);
    if (rect) return failed("A window that doesn't exist is " + said(*rect) + ".");
    return passed("The answer was " + std::to_string(rect.error()) + ".");
}

} // namespace

std::vector<Check> windowServerChecks() {
    constexpr auto family = "window server";
    return {
        reads(family, "The private functions are there together, with a lasting connection.",
              connectionStays),
        reads(family, "The menu bar has windows, and no more than there are in all.", countsFit),
        reads(family, "A list of windows is written no further than it has room.", listStaysInItsRoom),
        reads(family, "Windows of the menu bar lie at the top of a screen.", windowsAreInTheMenuBar),
        reads(family, "The place of a window that doesn't exist is an error.", unknownWindowsFail),
    };
}

} // namespace tavrin::seam_check
