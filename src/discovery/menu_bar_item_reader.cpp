#include "discovery/menu_bar_item_reader.h"

#include "discovery/menu_bar_item_scan_policy.h"
#include "platform/accessibility_names.h"

#include <array>
#include <utility>

namespace tavrin {

namespace {

AxMessenger::Answer<std::optional<Rect>> frameOf(const MenuBarItemSnapshot& item,
                                                 const AccessibilityMenuBarScanner& scanner,
                                                 Accessibility& accessibility) {
    const auto element = scanner.resolveElement(item);
    if (!element) return std::nullopt;
    const auto attributes = read(accessibility, *element, std::array{ax::position, ax::size},
                                 AccessibilityMenuBarScanner::messagingTimeout);
    if (!attributes) return std::unexpected(attributes.error());
    const auto frame = attributes->frame();
    return frame && MenuBarItemScanPolicy::isValidFrame(*frame) ? frame : std::nullopt;
}

} // namespace

Task<std::optional<Rect>> MenuBarItemReader::currentFrame(MenuBarItemSnapshot item) {
    const auto frame = co_await messenger_.ask(
        [scanner = scanner_, item = std::move(item)](Accessibility& accessibility, const AbandonFlag&) {
            return frameOf(item, scanner, accessibility);
        });
    co_return frame.value_or(std::nullopt);
}

} // namespace tavrin
