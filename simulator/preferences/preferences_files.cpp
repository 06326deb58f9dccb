#include "preferences/preferences_files.h"

#include "desktop/defaults_json.h"
#include "desktop/strict_json.h"
#include "preferences/whole_file.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <unistd.h>
#include <vector>

namespace mac_model {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view byHostFolder = "ByHost";

constexpr std::string_view extension = ".json";
constexpr std::string_view hexDigits = "0123456789ABCDEF";

/// Domain names come from anywhere; as file names they must not reach out of their folder. "%" escapes a
/// byte.
std::string fileNameOf(const std::string& domain) {
    std::string name;
    for (const char character : domain) {
        const auto byte = static_cast<unsigned char>(character);
        if ((std::isalnum(byte) != 0 && byte < 128) || character == '.' || character == '-' ||
            character == '_') {
            name += character;
        } else {
            name += {'%', hexDigits[byte >> 4U], hexDigits[byte & 15U]};
        }
    }
    return name.append(extension);
}

std::optional<std::string> domainNamed(std::string fileName) {
    if (!fileName.ends_with(extension)) return std::nullopt;
    fileName.resize(fileName.size() - extension.size());
    std::string domain;
    for (std::size_t i = 0; i < fileName.size(); ++i) {
        if (fileName[i] != '%') {
            domain += fileName[i];
            continue;
        }
        if (i + 2 >= fileName.size()) return std::nullopt;
        const auto high = hexDigits.find(fileName[i + 1]);
        const auto low = hexDigits.find(fileName[i + 2]);
        if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
        domain += static_cast<char>(high << 4U | low);
        i += 2;
    }
    return domain;
}

bool isRemovalMark(const nlohmann::json& value) {
    return value.is_object() && value.size() == 1 && value.contains("$removed");
}

std::unexpected<std::string> notReadable(const fs::path& path, const std::string& reason) {
    return std::unexpected("The preferences file " + inQuotes(path.string()) + " can't be read: " + reason +
                           " Move it away to start without it; it was left as it is.");
}

std::expected<StoredDomain, std::string> readDomain(const fs::path& path) {
    const auto text = readWholeFile(path);
    if (!text) return notReadable(path, text.error() + ".");
    const auto json = parseStrictJson(*text);
    if (!json) return notReadable(path, describe(json.error()));
    if (!json->is_object()) return notReadable(path, "it holds no JSON object.");
    StoredDomain domain;
    for (const auto& [key, value] : json->items()) {
        if (isRemovalMark(value)) {
            domain.removed.insert(key);
        } else if (auto read = defaultsValue(value)) {
            domain.values.emplace(key, std::move(*read));
        } else {
            return notReadable(path, "the value of " + inQuotes(key) + " is of no known kind.");
        }
    }
    return domain;
}

std::expected<std::vector<fs::path>, std::string> filesIn(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> files;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (entry->is_regular_file(error)) files.push_back(entry->path());
    if (error)
        return std::unexpected("The folder " + inQuotes(folder.string()) +
                               " can't be read: " + error.message() + ".");
    std::ranges::sort(files);
    return files;
}

/// What a killed process left of a file that it was about to replace.
bool isLeftover(const fs::path& file) {
    const auto name = file.filename().string();
    return name.starts_with('.') && name.find(std::string(extension) + ".") != std::string::npos;
}

/// Empties the folder of leftovers; the words for the reason when it can't be written to.
std::expected<void, std::string> makeReady(const fs::path& folder) {
    std::error_code error;
    for (const auto& file : filesIn(folder).value_or(std::vector<fs::path>{}))
        if (isLeftover(file)) fs::remove(file, error);
    const auto probe = folder / ".writable";
    auto written = replaceWholeFile(probe, "");
    fs::remove(probe, error);
    return written;
}

} // namespace

std::expected<PreferencesFiles, std::string> PreferencesFiles::open(const fs::path& profile) {
    const auto folder = profile / "Preferences";
    const auto refuse = [&](const std::string& reason) {
        return std::unexpected("The profile folder " + inQuotes(profile.string()) +
                               " can't be used: " + reason + ".");
    };
    std::error_code error;
    fs::create_directories(folder / byHostFolder, error);
    if (error) return refuse(error.message());
    auto lock = FolderLock::take(folder);
    if (!lock) return refuse(lock.error());
    if (!*lock) return refuse("another modelled Mac has it open");
    for (const auto& part : {folder, folder / byHostFolder})
        if (const auto ready = makeReady(part); !ready) return refuse(ready.error());
    return PreferencesFiles(folder, std::move(**lock));
}

fs::path PreferencesFiles::folderOf(Host host) const {
    return host == Host::Any ? folder_ : folder_ / byHostFolder;
}

std::expected<std::map<DefaultsDomain, StoredDomain>, std::string> PreferencesFiles::readAll() const {
    std::map<DefaultsDomain, StoredDomain> domains;
    for (const auto host : {Host::Any, Host::Current})
        if (auto read = readFolder(host, domains); !read) return std::unexpected(read.error());
    return domains;
}

std::expected<void, std::string>
PreferencesFiles::readFolder(Host host, std::map<DefaultsDomain, StoredDomain>& into) const {
    const auto files = filesIn(folderOf(host));
    if (!files) return std::unexpected(files.error());
    for (const auto& path : *files) {
        const auto name = domainNamed(path.filename().string());
        if (!name) continue;
        auto domain = readDomain(path);
        if (!domain) return std::unexpected(domain.error());
        into.emplace(DefaultsDomain{*name, host}, std::move(*domain));
    }
    return {};
}

std::expected<void, std::string> PreferencesFiles::write(const DefaultsDomain& domain,
                                                         const StoredDomain& content) const {
    auto json = toJson(content.values);
    for (const auto& key : content.removed) json[key] = {{"$removed", true}};
    const auto path = folderOf(domain.host) / fileNameOf(domain.name);
    const auto written =
        replaceWholeFile(path, json.dump(1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n");
    if (written) return {};
    return std::unexpected("The preferences file " + inQuotes(path.string()) +
                           " can't be written: " + written.error() + ".");
}

} // namespace mac_model
