#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavrin {

struct DefaultsValue;
using DefaultsArray = std::vector<DefaultsValue>;
using DefaultsDictionary = std::map<std::string, DefaultsValue>;
using DefaultsData = std::vector<std::byte>;

/// A value of a preferences domain. Numbers keep whether they were stored as an integer, a real or a boolean.
struct DefaultsValue {
    std::variant<bool, std::int64_t, double, std::string, DefaultsData, DefaultsArray, DefaultsDictionary>
        value;

    bool operator==(const DefaultsValue&) const = default;
};

/// The finite number that is stored, whether as an integer or a real; none for anything else.
std::optional<double> numberIn(const std::optional<DefaultsValue>& stored);

/// Whether the value is false, or 0, which a preference tool may have stored for it.
bool isFalse(const DefaultsValue& value);

/// A preferences domain: an application's own, or one of the system's, for any host or for this computer
/// alone.
struct DefaultsDomain {
    enum class Host { Any, Current };

    std::string name;
    Host host = Host::Any;

    auto operator<=>(const DefaultsDomain&) const = default;
};

/// Preferences that outlive the process. A change is seen by later reads at once and is written in the
/// background; a domain that cannot be written keeps its changes in memory. Main thread, except `value`: any
/// thread.
class Defaults {
  public:
    virtual ~Defaults() = default;

    /// The application's own domain, named by its bundle identifier.
    virtual DefaultsDomain ownDomain() const = 0;

    virtual std::optional<DefaultsValue> value(const DefaultsDomain& domain, std::string_view key) const = 0;
    virtual void set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) = 0;
    virtual void remove(const DefaultsDomain& domain, std::string_view key) = 0;

    /// The keys stored in the domain, ascending.
    virtual std::vector<std::string> keys(const DefaultsDomain& domain) const = 0;

    /// Hands pending changes to the system, so that other processes read them.
    virtual void synchronize(const DefaultsDomain& domain) = 0;
};

} // namespace tavrin
