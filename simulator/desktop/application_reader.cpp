#include "desktop/desktop_readers.h"

namespace mac_model {
namespace {

using nlohmann::json;

constexpr std::size_t statusItemsMax = 1000;
constexpr std::size_t actionsMax = 50;
constexpr NumberRange widths{1, 10000}; // macOS cuts longer items to 10,000
constexpr NumberRange positions{0, 1000000};
constexpr NumberRange nestings{0, 40};
constexpr NumberRange latenciesSeconds{0, 60};
constexpr NumberRange processIdentifiers{1, 99998}; // as macOS gives them

std::vector<std::string> readActions(ObjectReader& item) {
    if (!item.has("actions")) return StatusItemSpec{}.actions;
    std::vector<std::string> actions;
    const std::vector<json>& values = item.list("actions", actionsMax);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::string* name = values[i].get_ptr<const std::string*>();
        if (name && name->starts_with("AX"))
            actions.push_back(*name);
        else
            item.faults().note(pointerTo(item.at("actions"), i),
                               "must be the name of an action, such as \"AXPress\"");
    }
    return actions;
}

void readWhatItOpens(ObjectReader& reader, StatusItemSpec& item) {
    item.menu = readMenu(reader, "menu");
    const Opens byDefault = reader.has("menu") ? Opens::Menu : Opens::Nothing;
    item.opens = reader.choice("opens", opensNames, byDefault);
    if (reader.has("menu") && item.opens != Opens::Menu)
        reader.refuse("menu", "is given, but the item opens " +
                                  inQuotes(opensNames[static_cast<std::size_t>(item.opens)]));
}

void readMobility(ObjectReader& reader, StatusItemSpec& item) {
    item.fixed = reader.flag("fixed", false);
    item.movable = reader.flag("movable", !item.fixed);
    if (item.fixed && item.movable) reader.refuse("movable", "cannot be true for a fixed item");
}

StatusItemSpec readStatusItem(const json& value, std::string pointer, std::size_t index, FirstFault& faults) {
    ObjectReader reader(value, std::move(pointer), faults);
    StatusItemSpec item;
    item.autosaveName = reader.text("autosaveName", Need::Optional, "Item-" + std::to_string(index));
    item.identifier = reader.text("identifier");
    item.title = reader.text("title");
    item.description = reader.text("description");
    item.help = reader.text("help");
    item.width = reader.number("width", widths, Need::Required).value_or(0);
    item.preferredPosition = reader.number("preferredPosition", positions);
    readWhatItOpens(reader, item);
    item.enabled = reader.flag("enabled", item.enabled);
    readMobility(reader, item);
    item.actions = readActions(reader);
    item.nesting = reader.integer("nesting", nestings).value_or(0);
    item.accessible = reader.flag("accessible", item.accessible);
    item.symbol = reader.text("symbol");
    reader.refuseOthers();
    return item;
}

/// Two items under one name would overwrite each other's stored position.
void refuseSharedName(const std::vector<StatusItemSpec>& before, const StatusItemSpec& item,
                      const std::string& itemsPointer, FirstFault& faults) {
    for (std::size_t i = 0; i < before.size(); ++i)
        if (before[i].autosaveName == item.autosaveName)
            faults.note(pointerTo(pointerTo(itemsPointer, before.size()), "autosaveName"),
                        inQuotes(item.autosaveName) + " is already the name of " +
                            pointerTo(itemsPointer, i));
}

std::vector<StatusItemSpec> readStatusItems(ObjectReader& application) {
    const std::string place = application.at("statusItems");
    std::vector<StatusItemSpec> items;
    for (const json& value : application.list("statusItems", statusItemsMax)) {
        StatusItemSpec item =
            readStatusItem(value, pointerTo(place, items.size()), items.size(), application.faults());
        refuseSharedName(items, item, place, application.faults());
        items.push_back(std::move(item));
    }
    return items;
}

} // namespace

ApplicationSpec readApplication(const json& value, const std::string& pointer, FirstFault& faults) {
    ObjectReader reader(value, pointer, faults);
    ApplicationSpec application;
    application.bundleIdentifier = reader.text("bundleIdentifier");
    application.name = reader.text("name", Need::Required);
    application.processIdentifier = reader.integer("processIdentifier", processIdentifiers).value_or(0);
    application.policy = reader.choice("policy", policyNames, application.policy, Need::Required);
    application.menuBar = readMenu(reader, "menuBar");
    application.statusItems = readStatusItems(reader);
    application.accessibility =
        reader.choice("accessibility", accessibilitySupportNames, application.accessibility);
    application.latencySeconds =
        reader.number("latency", latenciesSeconds).value_or(application.latencySeconds);
    application.responding = reader.flag("responding", application.responding);
    application.extras = reader.choice("extras", extrasBarNames, application.extras);
    application.icon = reader.text("icon");
    reader.refuseOthers();
    return application;
}

} // namespace mac_model
