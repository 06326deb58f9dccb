#include "concurrency/waits.h"
#include "platform/events.h"
#include "platform/hot_keys.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

constexpr KeyCode f19 = 80; // on few keyboards, and nobody's shortcut with all modifier keys
constexpr CarbonModifiers allModifiers =
    carbonCommandKey | carbonShiftKey | carbonOptionKey | carbonControlKey;
constexpr std::uint32_t signature = 0x54765363; // 'TvSc'

Verdict systemShortcutsAreListed(const Platform& platform) {
    const auto keys = platform.hotKeys.symbolicHotKeys();
    if (keys.empty()) return skipped("The system gives no list.");
    const auto enabled =
        std::ranges::count(keys, true, [](const auto& key) { return key.isEnabled.value_or(false); });
    const auto whole = std::ranges::count_if(keys, [](const auto& key) {
        return key.isEnabled.has_value() && key.code.has_value() && key.modifiers.has_value();
    });
    const auto seen = counted(keys.size(), "shortcut") + ", " + std::to_string(enabled) +
                      " of them enabled, " + std::to_string(whole) + " with all their values.";
    return whole > 0 ? passed(seen) : failed(seen);
}

Task<Verdict> keysAreHadOnce(Platform platform) {
    auto& hotKeys = platform.hotKeys;
    auto first = hotKeys.registerHotKey(f19, allModifiers, {signature, 1});
    if (!first && first.error() == HotKeys::existsError) co_return skipped("Somebody has the key already.");
    if (!first) co_return failed("The key was refused with " + std::to_string(first.error()) + ".");
    const auto second = hotKeys.registerHotKey(f19, allModifiers, {signature, 2});
    const auto other = hotKeys.registerHotKey(f19, carbonCommandKey | carbonControlKey, {signature, 3});
    first->reset();
    const auto again = hotKeys.registerHotKey(f19, allModifiers, {signature, 4});
    Findings findings;
    findings.expect(!second && second.error() == HotKeys::existsError,
                    "this process could have one key twice");
    findings.expect(other.has_value(), "the same key with other modifiers was refused");
    findings.expect(again.has_value(), "the key was not free after its registration had gone");
    co_return findings.verdict("F19 with all modifiers was had once, and free again afterwards.");
}

Task<Verdict> handlersAreInstalled(Platform platform) {
    const auto ignore = [](const HotKeyIdentifier&) { return HotKeys::Handling::NotHandled; };
    auto first = platform.hotKeys.installPressHandler(ignore);
    const auto second = platform.hotKeys.installPressHandler(ignore);
    const bool areThere = first && second;
    first.reset();
    const auto third = platform.hotKeys.installPressHandler(ignore);
    if (!areThere || !third) co_return failed("A handler could not be installed.");
    co_return passed("Three were installed, and one removed in between.");
}

Task<Verdict> pressesArrive(Platform platform, Surroundings surroundings) {
    constexpr HotKeyIdentifier wanted{signature, 5};
    if (!surroundings.pressKey) co_return skipped("No key can be pressed here.");
    if (!platform.events.mayPost()) co_return skipped("Accessibility is not allowed.");
    const auto heard = std::make_shared<std::vector<HotKeyIdentifier>>();
    const auto handler = platform.hotKeys.installPressHandler([heard](const HotKeyIdentifier& identifier) {
        heard->push_back(identifier);
        return HotKeys::Handling::Handled;
    });
    auto key = platform.hotKeys.registerHotKey(f19, allModifiers, wanted);
    if (!handler || !key) co_return skipped("The key could not be had.");
    surroundings.pressKey(f19, allModifiers);
    (void)co_await comesTrue(platform, [heard] { return !heard->empty(); }, 2s);
    const auto count = heard->size();
    key->reset();
    surroundings.pressKey(f19, allModifiers);
    (void)co_await sleepFor(300ms);
    Findings findings;
    findings.expect(count == 1, "a press was heard " + counted(count, "time"));
    findings.expect(heard->empty() || heard->front() == wanted, "it came under another identifier");
    findings.expect(heard->size() == count, "a press was heard after the registration had gone");
    co_return findings.verdict(
        "F19 with all modifiers was heard once, and not after its registration had gone.");
}

} // namespace

std::vector<Check> hotKeysChecks(const Surroundings& surroundings) {
    constexpr auto family = "hot keys";
    return {
        reads(family, "The system's own shortcuts are listed with their keys.", systemShortcutsAreListed),
        changes(family, "A hot key is had once, and is free when its registration has gone.", keysAreHadOnce),
        changes(family, "Handlers of presses are installed and removed.", handlersAreInstalled),
        changes(family, "A hot key that is pressed reaches the handler under its identifier.",
                [surroundings](Platform platform) { return pressesArrive(platform, surroundings); }),
    };
}

} // namespace tavrin::seam_check
