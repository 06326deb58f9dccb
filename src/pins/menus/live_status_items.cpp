#include "pins/menus/live_status_items.h"

#include "accessibility/application_reader.h"
#include "pins/menus/menu_access.h"
#include "platform/accessibility_names.h"

#include <array>
#include <iterator>
#include <utility>

namespace tavrin::LiveStatusItems {

namespace {

constexpr std::array furtherAttributes{ax::enabled, ax::value};

/// The value comes before the help, as in menus.
std::optional<std::string> labelOf(const MenuBarElement& read, const Attributes& further) {
    for (const auto& text : {read.title, read.description, further.as<std::string>(ax::value), read.help})
        if (text && !text->empty()) return text;
    return std::nullopt;
}

std::expected<LiveStatusItem, ReadFailure> itemFrom(Accessibility& accessibility,
                                                    const RunningApplication& application,
                                                    const MenuBarElement& read, std::size_t index) {
    const auto further =
        tavrin::read(accessibility, read.element, furtherAttributes, MenuAccess::messagingTimeout);
    if (!further) return std::unexpected(further.error());
    auto actions = readActions(accessibility, read.element, MenuAccess::messagingTimeout);
    if (!actions) return std::unexpected(actions.error());
    return LiveStatusItem{.processIdentifier = application.processIdentifier,
                          .bundleIdentifier = application.bundleIdentifier.value_or(""),
                          .applicationName = application.localizedName,
                          .element = read.element,
                          .index = index,
                          .identifier = read.rawIdentifier,
                          .label = labelOf(read, *further),
                          .frame = read.reportedFrame,
                          .isEnabled = further->isTrue(ax::enabled),
                          .actions = std::move(*actions)};
}

void append(std::vector<LiveStatusItem>& items, std::vector<LiveStatusItem> more) {
    items.insert(items.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

} // namespace

Items items(Accessibility& accessibility, const RunningApplication& application,
            const AbandonFlag& abandoned) {
    const ApplicationReader reader(accessibility, MenuAccess::messagingTimeout, abandoned);
    const auto elements = reader.readItems(application.processIdentifier, ApplicationReader::Bars::Extras);
    if (!elements) return std::unexpected(elements.error());
    std::vector<LiveStatusItem> items;
    for (const auto& element : *elements) {
        if (abandoned.isRaised()) return std::unexpected(ReadFailure::Abandoned);
        auto item = itemFrom(accessibility, application, element, items.size());
        if (!item) return std::unexpected(item.error());
        items.push_back(std::move(*item));
    }
    return items;
}

Items items(Accessibility& accessibility, const std::vector<RunningApplication>& running,
            std::string_view bundleIdentifier, const AbandonFlag& abandoned) {
    std::vector<LiveStatusItem> found;
    std::optional<ReadFailure> failure;
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
        else if (own.error() != ReadFailure::TimedOut)
            return own;
    }
    return found;
}

} // namespace tavrin::LiveStatusItems
