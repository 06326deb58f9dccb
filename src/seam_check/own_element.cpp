#include "seam_check/own_element.h"

#include "platform/accessibility_names.h"
#include "platform/application.h"
#include "seam_check/waiting.h"

#include <utility>
#include <variant>
#include <vector>

namespace tavrin::seam_check {

namespace {

// These run off the main thread, which has to answer.

bool tellsNow(Accessibility& accessibility, const AccessibilityElement& element, std::string_view attribute,
              const std::string& text) {
    const auto answer = accessibility.attribute(element, attribute);
    const auto* value = answer ? std::get_if<std::string>(&*answer) : nullptr;
    return value && value->contains(text);
}

std::vector<AccessibilityElement> itemsOf(Accessibility& accessibility,
                                          const AccessibilityElement& application) {
    const auto bar = accessibility.attribute(application, ax::extrasMenuBar);
    const auto* element = bar ? std::get_if<AccessibilityElement>(&*bar) : nullptr;
    if (!element) return {};
    const auto children = accessibility.attribute(*element, ax::children);
    const auto* items = children ? std::get_if<std::vector<AccessibilityElement>>(&*children) : nullptr;
    return items ? *items : std::vector<AccessibilityElement>{};
}

std::optional<AccessibilityElement> itemLabelled(Accessibility& accessibility,
                                                 const AccessibilityElement& application,
                                                 const std::string& label) {
    for (const auto& item : itemsOf(accessibility, application))
        if (tellsNow(accessibility, item, ax::description, label) ||
            tellsNow(accessibility, item, ax::title, label))
            return item;
    return std::nullopt;
}

std::optional<Rect> frameNow(Accessibility& accessibility, const AccessibilityElement& element) {
    const auto position = accessibility.attribute(element, ax::position);
    const auto size = accessibility.attribute(element, ax::size);
    const auto* origin = position ? std::get_if<Point>(&*position) : nullptr;
    const auto* extent = size ? std::get_if<Size>(&*size) : nullptr;
    if (!origin || !extent) return std::nullopt;
    return Rect::from(*origin, *extent);
}

} // namespace

Task<std::optional<AccessibilityElement>> ownItemElement(Platform platform, std::string label) {
    auto& accessibility = platform.accessibility;
    const auto application = accessibility.application(platform.application.processIdentifier());
    accessibility.setMessagingTimeout(application, ownMessageTimeMax);
    const auto item =
        co_await offTheMainThread(platform, [&accessibility, application, label = std::move(label)] {
            return itemLabelled(accessibility, application, label);
        });
    co_return item ? *item : std::nullopt;
}

Task<bool> tells(Platform platform, AccessibilityElement element, std::string_view attribute,
                 std::string text) {
    auto& accessibility = platform.accessibility;
    const auto answer =
        co_await offTheMainThread(platform, [&accessibility, element, attribute, text = std::move(text)] {
            return tellsNow(accessibility, element, attribute, text);
        });
    co_return answer.value_or(false);
}

Task<std::optional<Rect>> frameOf(Platform platform, AccessibilityElement element) {
    auto& accessibility = platform.accessibility;
    const auto frame = co_await offTheMainThread(
        platform, [&accessibility, element] { return frameNow(accessibility, element); });
    co_return frame ? *frame : std::nullopt;
}

} // namespace tavrin::seam_check
