#pragma once

#include "platform/defaults.h"

#include <map>
#include <string>
#include <utility>

namespace tavrin {

/// One domain in memory, which counts the writes to it.
class CountingDefaults final : public Defaults {
  public:
    int writes = 0;
    std::map<std::string, DefaultsValue, std::less<>> values;

    DefaultsDomain ownDomain() const override { return {"org.example.own"}; }

    std::optional<DefaultsValue> value(const DefaultsDomain& /*domain*/,
                                       std::string_view key) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void set(const DefaultsDomain& /*domain*/, std::string_view key, DefaultsValue value) override {
        ++writes;
        values.insert_or_assign(std::string(key), std::move(value));
    }

    void remove(const DefaultsDomain& /*domain*/, std::string_view key) override {
        ++writes;
        values.erase(std::string(key));
    }

    std::vector<std::string> keys(const DefaultsDomain& /*domain*/) const override {
        std::vector<std::string> keys;
        for (const auto& [key, value] : values) keys.push_back(key);
        return keys;
    }

    void synchronize(const DefaultsDomain& /*domain*/) override {}
};

} // namespace tavrin
