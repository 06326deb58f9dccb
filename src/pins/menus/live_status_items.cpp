#include "pins/menus/live_status_items.h"

#include "discovery/application_reader.h"

#include <array>
#include <iterator>
#include <utility>

namespace tavrin::LiveStatusItems {

namespace {

constexpr std::array furtherAttributes{MenuAX::enabled, MenuAX::value};

MenuReadFailure failureOf(ApplicationReader::Failure failure) {
    switch (failure) {
    case ApplicationReader::Failure::TimedOut:
        return MenuReadFailure::TimedOut;
    case ApplicationReader::Failure::Denied:
        return MenuReadFailure::Denied;
    case ApplicationReader::Failure::Abandoned:
        break;
    }
    return MenuReadFailure::Abandoned;
}

AttributeResult resultOf(const std::optional<std::string>& text) {
    if (!text) return std::unexpected(AccessibilityError::NoValue);
    return *text;
}

std::optional<Rect> frameOf(const MenuBarElement& element) {
    if (!element.position || !element.size) return std::nullopt;
    return element.frame();
}

std::expected<LiveStatusItem, MenuReadFailure> itemFrom(Accessibility& accessibility,
                                                        const RunningApplication& application,
                                                        const MenuBarElement& read, std::size_t index) {
    const auto further = MenuAX::read(accessibility, read.element, furtherAttributes);
    if (!further) return std::unexpected(further.error());
    auto actions = MenuAX::actions(accessibility, read.element);
    if (!actions) return std::unexpected(actions.error());
    const std::array labels{resultOf(read.title), resultOf(read.description), (*further)[1],
                            resultOf(read.help)};
    return LiveStatusItem{.processIdentifier = application.processIdentifier,
                          .bundleIdentifier = application.bundleIdentifier.value_or(""),
                          .applicationName = application.localizedName,
                          .element = read.element,
                          .index = index,
                          .identifier = read.rawIdentifier,
                          .label = MenuAX::label(labels),
                          .frame = frameOf(read),
                          .isEnabled = MenuAX::boolean(further->front()),
                          .actions = std::move(*actions)};
}

void append(std::vector<LiveStatusItem>& items, std::vector<LiveStatusItem> more) {
    items.insert(items.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

Items items(Accessibility& accessibility, const RunningApplication& application,
            const AbandonFlag& abandoned) {
    const ApplicationReader reader(accessibility, MenuAX::messagingTimeout, abandoned);
    // Without its bundle identifier even a process of the system's is asked for its extras alone.
    const auto elements = reader.readItems(application.processIdentifier, {});
    if (!elements) return std::unexpected(failureOf(elements.error()));
    std::vector<LiveStatusItem> items;
    for (const auto& element : *elements) {
        if (abandoned.isRaised()) return std::unexpected(MenuReadFailure::Abandoned);
        auto item = itemFrom(accessibility, application, element, items.size());
        if (!item) return std::unexpected(item.error());
        items.push_back(std::move(*item));
    }
    return items;
}

Items items(Accessibility& accessibility, const std::vector<RunningApplication>& running,
            std::string_view bundleIdentifier, const AbandonFlag& abandoned) {
    std::vector<LiveStatusItem> found;
    std::optional<MenuReadFailure> failure;
    for (const auto& application : running) {
        if (application.bundleIdentifier != bundleIdentifier) continue;
        auto own = items(accessibility, application, abandoned);
        if (own)
            append(found, std::move(*own));
        else
            failure = own.error();
    }
    if (found.empty() && failure) return std::unexpected(*failure);
    return found;
}

Items all(Accessibility& accessibility, const std::vector<RunningApplication>& running,
          const AbandonFlag& abandoned) {
    std::vector<LiveStatusItem> found;
    for (const auto& application : running) {
        auto own = items(accessibility, application, abandoned);
        if (own)
            append(found, std::move(*own));
        else if (own.error() != MenuReadFailure::TimedOut)
            return own;
    }
    return found;
}

} // namespace tavrin::LiveStatusItems
