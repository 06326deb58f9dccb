#include "platform/application.h"
#include "platform/events.h"
#include "platform/keyboard.h"
#include "platform/presentation.h"
#include "platform/status_items.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/shown_item.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"
#include "views/view_builders.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr Seconds patience = 30s;

View request(const std::string& words) {
    return column({text("Self-check of Tavrin", {.style = TextStyle::Heading}), text(words)},
                  {.padding = 16, .width = 300});
}

Verdict nobodyDid(std::string_view what) {
    return skipped("Nobody " + std::string(what) + " within " + said(patience) + ".");
}

struct Click {
    std::optional<StatusItemPress> press;
    bool isOnMain = false;
};

/// Asks for a click on the item and gives what came; nothing came when nobody clicked.
Task<Click> clickOn(Platform platform, const ScratchItem* item, std::string words) {
    const auto click = std::make_shared<Click>();
    (*item)->setAction([click, &scheduler = platform.scheduler](StatusItemPress press) {
        *click = {press, scheduler.isMainThread()};
    });
    const auto panel = platform.presentation.makePanel(); // takes the keyboard from nobody
    panel->setContent(request(words));
    panel->show((*item)->frame().value_or(Rect{}));
    (void)co_await comesTrue(platform, [click] { return click->press.has_value(); }, patience);
    (*item)->setAction(nullptr);
    co_return *click;
}

/// Gives the front to the Finder, so that the program can ask for it.
Task<bool> stepsBack(Platform platform) {
    for (const auto& one : platform.workspace.runningApplications())
        if (one.bundleIdentifier == "com.apple.finder") platform.workspace.activate(one.processIdentifier);
    co_return co_await comesTrue(platform, [platform] { return !platform.application.isActive(); }, 2s);
}

Task<Verdict> clicksLetTheProgramBecomeActive(Platform platform) {
    const auto shown = co_await shownItem(platform, squareStatusItemLength);
    if (!shown) co_return shown.error();
    if (!co_await stepsBack(platform)) co_return skipped("The program is in front already, and stays there.");
    auto& application = platform.application;
    const auto click = co_await clickOn(platform, &*shown, "Please click the round check mark above, once.");
    if (!click.press) co_return nobodyDid("clicked");
    application.activate();
    const auto isActive = [&application] { return application.isActive(); };
    const bool isGranted = co_await comesTrue(platform, isActive, 1s);
    if (!isGranted) application.activateIgnoringOthers();
    const bool hasInsisted = co_await comesTrue(platform, isActive, 2s);
    Findings findings;
    findings.expect(*click.press == StatusItemPress::Left, "the click came as one with the right button");
    findings.expect(click.isOnMain, "it came off the main thread");
    findings.expect(hasInsisted, "the program did not become active after it");
    co_return findings.verdict(isGranted ? "It came, and the program became active when it asked."
                                         : "It came, and the program became active only when it insisted.");
}

Task<Verdict> rightClicksAreToldApart(Platform platform) {
    const auto shown = co_await shownItem(platform, squareStatusItemLength);
    if (!shown) co_return shown.error();
    const auto click = co_await clickOn(
        platform, &*shown, "Please click the round check mark above with the right button, once.");
    if (!click.press) co_return nobodyDid("clicked");
    if (*click.press != StatusItemPress::Right) co_return failed("It came as one with the left button.");
    co_return passed("It came as one with the right button.");
}

Task<Verdict> keysAreShownFirst(Platform platform) {
    const auto keys = std::make_shared<std::vector<KeyPress>>();
    const auto monitor = platform.keyboard.monitorKeyDown([keys](const KeyPress& key) {
        keys->push_back(key);
        return KeyHandling::Consumed;
    });
    const auto window = platform.presentation.makeWindow("Self-check of Tavrin", [] {});
    window->setContent(request("Please press the Escape key, once."));
    platform.application.activateIgnoringOthers();
    window->makeKeyAndOrderFront();
    (void)co_await comesTrue(platform, [keys] { return !keys->empty(); }, patience);
    if (keys->empty()) co_return nobodyDid("pressed a key");
    if (keys->front().keyCode != escapeKeyCode)
        co_return failed("It came as key " + std::to_string(keys->front().keyCode) + " and not as " +
                         std::to_string(escapeKeyCode) + ".");
    co_return passed("It was seen before the window had it.");
}

} // namespace

std::vector<Check> guidedChecks() {
    constexpr auto family = "by hand";
    return {
        asks(family, "A click on an item reaches its action, and the program may become active then.",
             clicksLetTheProgramBecomeActive),
        asks(family, "A click with the right button is told apart.", rightClicksAreToldApart),
        asks(family, "A key that goes down for a window of the program is shown to it first.",
             keysAreShownFirst),
    };
}

} // namespace tavrin::seam_check
