#include "preferences/preferences_store.h"

#include "desktop/defaults_json.h"

#include <algorithm>

namespace mac_model {

namespace {
constexpr Seconds writeDelay{0.05};
} // namespace

PreferencesStore::PreferencesStore(VirtualScheduler& scheduler, std::optional<PreferencesFiles> files)
    : world_(scheduler)
    , files_(std::move(files)) {}

PreferencesStore::~PreferencesStore() { flush(); }

std::expected<std::unique_ptr<PreferencesStore>, std::string>
PreferencesStore::create(VirtualScheduler& scheduler, const std::optional<std::filesystem::path>& profile,
                         const DesktopFile& desktop) {
    std::optional<PreferencesFiles> files;
    if (profile) {
        auto opened = PreferencesFiles::open(*profile);
        if (!opened) return std::unexpected(opened.error());
        files = std::move(*opened);
    }
    std::unique_ptr<PreferencesStore> store(new PreferencesStore(scheduler, std::move(files)));
    if (auto loaded = store->load(); !loaded) return std::unexpected(loaded.error());
    store->seed(desktop.defaults, DefaultsDomain::Host::Any);
    store->seed(desktop.byHostDefaults, DefaultsDomain::Host::Current);
    return store;
}

std::expected<void, std::string> PreferencesStore::load() {
    if (!files_) return {};
    auto stored = files_->readAll();
    if (!stored) return std::unexpected(stored.error());
    for (auto& [name, content] : *stored) {
        auto& domain = domains_[name];
        domain.values = std::move(content.values);
        domain.removed = std::move(content.removed);
    }
    return {};
}

void PreferencesStore::seed(const PreferenceDomains& preferences, DefaultsDomain::Host host) {
    for (const auto& [name, values] : preferences) {
        auto& domain = domains_[{name, host}];
        for (const auto& [key, json] : values) {
            domain.seeded.insert(key);
            auto value = defaultsValue(json);
            if (value && !domain.removed.contains(key)) domain.values.try_emplace(key, std::move(*value));
        }
    }
}

std::optional<DefaultsValue> PreferencesStore::value(const DefaultsDomain& name, std::string_view key) const {
    const auto domain = domains_.find(name);
    if (domain == domains_.end()) return std::nullopt;
    const auto& values = domain->second.values;
    const auto found = values.find(std::string(key));
    return found == values.end() ? std::nullopt : std::optional(found->second);
}

std::optional<double> PreferencesStore::number(const DefaultsDomain& domain, std::string_view key) const {
    const auto found = value(domain, key);
    if (!found) return std::nullopt;
    if (const auto* real = std::get_if<double>(&found->value)) return *real;
    if (const auto* integer = std::get_if<std::int64_t>(&found->value)) return static_cast<double>(*integer);
    return std::nullopt;
}

std::optional<bool> PreferencesStore::boolean(const DefaultsDomain& domain, std::string_view key) const {
    const auto found = value(domain, key);
    const auto* flag = found ? std::get_if<bool>(&found->value) : nullptr;
    return flag ? std::optional(*flag) : std::nullopt;
}

void PreferencesStore::set(const DefaultsDomain& name, std::string_view key, DefaultsValue value) {
    auto& domain = domains_[name];
    auto [entry, isNew] = domain.values.try_emplace(std::string(key));
    if (!isNew && entry->second == value) return;
    entry->second = std::move(value);
    domain.removed.erase(std::string(key));
    touch(domain);
}

void PreferencesStore::remove(const DefaultsDomain& name, std::string_view key) {
    const auto found = domains_.find(name);
    if (found == domains_.end()) return;
    auto& domain = found->second;
    if (domain.values.erase(std::string(key)) == 0) return;
    if (domain.seeded.contains(key)) domain.removed.emplace(key);
    touch(domain);
}

std::vector<std::string> PreferencesStore::keys(const DefaultsDomain& name) const {
    std::vector<std::string> keys;
    const auto domain = domains_.find(name);
    if (domain == domains_.end()) return keys;
    for (const auto& [key, _] : domain->second.values) keys.push_back(key);
    return keys;
}

std::vector<DefaultsDomain> PreferencesStore::domains() const {
    std::vector<DefaultsDomain> names;
    for (const auto& [name, _] : domains_) names.push_back(name);
    return names;
}

nlohmann::json PreferencesStore::describe(const DefaultsDomain& name) const {
    const auto domain = domains_.find(name);
    return domain == domains_.end() ? nlohmann::json::object() : toJson(domain->second.values);
}

void PreferencesStore::touch(Domain& domain) {
    domain.isDirty = true;
    if (!files_ || std::exchange(isWritePending_, true)) return;
    world_.after(writeDelay, [this] {
        isWritePending_ = false;
        flush();
    });
}

void PreferencesStore::flush() {
    lastWriteError_.reset();
    for (auto& [name, domain] : domains_) write(name, domain);
}

void PreferencesStore::flush(const DefaultsDomain& name) {
    const auto domain = domains_.find(name);
    if (domain == domains_.end()) return;
    lastWriteError_.reset();
    write(name, domain->second);
}

void PreferencesStore::write(const DefaultsDomain& name, Domain& domain) {
    if (!files_ || !domain.isDirty) return;
    const auto written = files_->write(name, {domain.values, domain.removed});
    domain.isDirty = !written;
    if (!written) lastWriteError_ = written.error();
}

} // namespace mac_model
