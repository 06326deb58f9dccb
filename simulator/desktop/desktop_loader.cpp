#include "desktop/desktop_loader.h"

#include "desktop/desktop_readers.h"

#include <cerrno>
#include <fstream>
#include <system_error>

namespace mac_model {
namespace {

using nlohmann::json;

constexpr NumberRange majorVersions{11, 99};
constexpr NumberRange minorVersions{0, 99};

template <class Value>
std::expected<Value, std::string> resultOf(Value value, const FirstFault& faults) {
    if (faults.fault()) return std::unexpected(describe(*faults.fault()));
    return value;
}

MacOSVersion readVersion(ObjectReader& file) {
    const json* value = file.member("macOS", Need::Required);
    if (!value) return {};
    ObjectReader reader(*value, file.at("macOS"), file.faults());
    MacOSVersion version;
    version.major = reader.integer("major", majorVersions, Need::Required).value_or(version.major);
    version.minor = reader.integer("minor", minorVersions).value_or(version.minor);
    reader.refuseOthers();
    return version;
}

void refuseSharedProcess(const std::vector<ApplicationSpec>& applications, const std::string& pointer,
                         FirstFault& faults) {
    std::map<int, std::size_t> seen;
    for (std::size_t i = 0; i < applications.size(); ++i) {
        const int process = applications[i].processIdentifier;
        const std::string place = pointerTo(pointerTo(pointer, i), "processIdentifier");
        const auto [first, isNew] = seen.emplace(process, i);
        if (process == 0)
            faults.note(place, "is missing");
        else if (!isNew)
            faults.note(place, std::to_string(process) + " is already the process identifier of " +
                                   pointerTo(pointer, first->second));
    }
}

std::vector<ApplicationSpec> readApplications(ObjectReader& file) {
    std::vector<ApplicationSpec> applications;
    const std::string place = file.at("applications");
    for (const json& value : file.list("applications", applicationsMax, Need::Required))
        applications.push_back(readApplication(value, pointerTo(place, applications.size()), file.faults()));
    refuseSharedProcess(applications, place, file.faults());
    return applications;
}

std::map<std::string, std::string> readBundles(ObjectReader& file) {
    std::map<std::string, std::string> bundles;
    const json* value = file.member("bundles");
    if (!value) return bundles;
    ObjectReader reader(*value, file.at("bundles"), file.faults());
    if (value->is_object())
        for (const auto& member : value->items()) bundles[member.key()] = reader.text(member.key());
    return bundles;
}

/// A place is stored under the item's name in its owner's domain; a position given in both places must agree.
void refuseContradictedPositions(const DesktopFile& desktop, FirstFault& faults) {
    for (std::size_t a = 0; a < desktop.applications.size(); ++a) {
        const ApplicationSpec& application = desktop.applications[a];
        const auto domain = desktop.defaults.find(application.bundleIdentifier);
        if (domain == desktop.defaults.end()) continue;
        for (std::size_t i = 0; i < application.statusItems.size(); ++i) {
            const StatusItemSpec& item = application.statusItems[i];
            const auto stored = domain->second.find("NSStatusItem Preferred Position " + item.autosaveName);
            if (!item.preferredPosition || stored == domain->second.end()) continue;
            if (stored->second != json(*item.preferredPosition))
                faults.note("/applications/" + std::to_string(a) + "/statusItems/" + std::to_string(i) +
                                "/preferredPosition",
                            "differs from what \"defaults\" stores for " + inQuotes(item.autosaveName));
        }
    }
}

void readDefaults(ObjectReader& file, DesktopFile& desktop) {
    const json* value = file.member("defaults");
    if (!value) return;
    StoredPreferences preferences = readPreferences(*value, file.at("defaults"), file.faults());
    desktop.defaults = std::move(preferences.ordinary);
    desktop.byHostDefaults = std::move(preferences.byHost);
}

Seconds readSeconds(ObjectReader& file, std::string_view key, Seconds otherwise) {
    constexpr NumberRange range{0, 3600};
    return Seconds{file.number(key, range).value_or(otherwise.count())};
}

void readKeys(ObjectReader& file, DesktopFile& desktop) {
    desktop.keyboardLayout = file.choice("keyboardLayout", keyboardLayoutNames, desktop.keyboardLayout);
    const auto place = file.at("hotKeysTaken");
    for (const json& value : file.list("hotKeysTaken", hotKeysMax))
        desktop.hotKeysTaken.push_back(readTakenHotKey(value, pointerTo(place, desktop.hotKeysTaken.size()),
                                                       desktop.keyboardLayout, file.faults()));
    if (const json* keys = file.member("symbolicHotKeys"))
        desktop.symbolicHotKeys = readSymbolicHotKeys(*keys, file.at("symbolicHotKeys"), file.faults());
}

DesktopFile readDesktop(const json& value, FirstFault& faults) {
    ObjectReader file(value, "", faults);
    DesktopFile desktop;
    desktop.macOS = readVersion(file);
    if (const json* screens = file.member("screens", Need::Required))
        desktop.screens = readScreens(*screens, file.at("screens"), desktop.macOS, faults);
    desktop.accessibilityTrusted = file.flag("accessibilityTrusted", desktop.accessibilityTrusted);
    desktop.listedInAccessibility = file.flag("listedInAccessibility", desktop.accessibilityTrusted);
    desktop.applications = readApplications(file);
    readDefaults(file, desktop);
    desktop.bundles = readBundles(file);
    desktop.visibilityService =
        file.choice("visibilityService", visibilityServiceNames, desktop.visibilityService);
    desktop.visibilityDelay = readSeconds(file, "visibilityDelay", desktop.visibilityDelay);
    desktop.assertionOutlives = readSeconds(file, "assertionOutlives", desktop.assertionOutlives);
    desktop.updater = file.choice("updater", updaterNames, desktop.updater);
    desktop.loginItem = file.choice("loginItem", loginItemAnswerNames, desktop.loginItem);
    readKeys(file, desktop);
    if (const json* model = file.member("model"))
        desktop.model = readUncertainties(*model, file.at("model"), desktop.model, faults);
    file.refuseOthers();
    refuseContradictedPositions(desktop, faults);
    return desktop;
}

std::expected<std::string, std::string> contentsOf(const std::filesystem::path& path) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        return std::unexpected("cannot be read: it is a folder.");
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::string text(desktopFileBytesMax + 1, '\0');
    if (file) file.read(text.data(), static_cast<std::streamsize>(text.size()));
    if (!file.is_open() || file.bad())
        return std::unexpected("cannot be read: " + std::generic_category().message(errno) + '.');
    text.resize(static_cast<std::size_t>(file.gcount()));
    return text;
}

} // namespace

Uncertainties readUncertainties(const json& value, const std::string& pointer, Uncertainties model,
                                FirstFault& faults) {
    ObjectReader reader(value, pointer, faults);
    for (const UncertaintySetting& setting : uncertaintySettings)
        setting.choose(model, reader.choice(setting.name, setting.values, setting.chosen(model)));
    reader.refuseOthers();
    return model;
}

std::expected<DesktopFile, std::string> loadDesktopFile(const std::filesystem::path& path) {
    const std::expected<std::string, std::string> text = contentsOf(path);
    if (!text) return std::unexpected(onOneLine(path.string()) + ": " + text.error());
    return parseDesktopFile(*text, path.string());
}

std::expected<DesktopFile, std::string> parseDesktopFile(std::string_view text,
                                                         std::string_view displayName) {
    const std::string prefix = onOneLine(displayName) + ": ";
    if (text.size() > desktopFileBytesMax) return std::unexpected(prefix + "/: is larger than 4 MiB.");
    const std::expected<json, JsonFault> value = parseStrictJson(text);
    if (!value) return std::unexpected(prefix + describe(value.error()));
    FirstFault faults;
    DesktopFile desktop = readDesktop(*value, faults);
    if (faults.fault()) return std::unexpected(prefix + describe(*faults.fault()));
    return desktop;
}

std::expected<ApplicationSpec, std::string> parseApplication(const json& value, const std::string& pointer) {
    FirstFault faults;
    return resultOf(readApplication(value, pointer, faults), faults);
}

std::expected<std::vector<ScreenSpec>, std::string>
parseScreens(const json& value, const std::string& pointer, MacOSVersion version) {
    FirstFault faults;
    return resultOf(readScreens(value, pointer, version, faults), faults);
}

std::expected<Uncertainties, std::string> parseUncertainties(const json& value, const std::string& pointer,
                                                             Uncertainties model) {
    FirstFault faults;
    return resultOf(readUncertainties(value, pointer, model, faults), faults);
}

std::expected<TakenHotKey, std::string> parseTakenHotKey(const json& value, const std::string& pointer,
                                                         KeyboardLayout layout) {
    FirstFault faults;
    return resultOf(readTakenHotKey(value, pointer, layout, faults), faults);
}

std::expected<std::vector<SymbolicHotKey>, std::string> parseSymbolicHotKeys(const json& value,
                                                                             const std::string& pointer) {
    FirstFault faults;
    return resultOf(readSymbolicHotKeys(value, pointer, faults), faults);
}

} // namespace mac_model
