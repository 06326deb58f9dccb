#include "discovery/menu_bar_item_reader.h"

#include "concurrency/waits.h"
#include "discovery/menu_bar_item_scan_policy.h"

#include <array>
#include <utility>
#include <variant>

namespace tavrin {

Task<std::optional<Rect>> MenuBarItemReader::currentFrame(MenuBarItemSnapshot item) {
    auto frame =
        co_await runOn(queue_, [&accessibility = accessibility_, scanner = scanner_, item = std::move(item)](
                                   const AbandonFlag&) { return read(accessibility, scanner, item); });
    co_return frame.value_or(std::nullopt);
}

std::optional<Rect> MenuBarItemReader::read(Accessibility& accessibility,
                                            const AccessibilityMenuBarScanner& scanner,
                                            const MenuBarItemSnapshot& item) {
    const auto element = scanner.resolveElement(item);
    if (!element) return std::nullopt;
    accessibility.setMessagingTimeout(*element, AccessibilityMenuBarScanner::messagingTimeout);
    const auto values = accessibility.attributes(*element, std::array{ax::position, ax::size});
    if (!values || values->size() != 2 || !values->front() || !values->back()) return std::nullopt;
    const auto* position = std::get_if<Point>(&*values->front());
    const auto* size = std::get_if<Size>(&*values->back());
    if (!position || !size) return std::nullopt;
    const auto frame = Rect::from(*position, *size);
    return MenuBarItemScanPolicy::isValidFrame(frame) ? std::optional(frame) : std::nullopt;
}

} // namespace tavrin
