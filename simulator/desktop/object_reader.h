#pragma once

#include "base/geometry.h"
#include "desktop/strict_json.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// The first fault found; later ones are dropped, since they may follow from it. After a fault readers go on
/// with harmless values; the owner looks for a fault once, at the end, and then discards everything that was
/// read.
class FirstFault {
  public:
    void note(std::string pointer, std::string problem) {
        if (!fault_) fault_ = JsonFault{std::move(pointer), std::move(problem)};
    }

    const std::optional<JsonFault>& fault() const { return fault_; }

  private:
    std::optional<JsonFault> fault_;
};

struct NumberRange {
    double least;
    double most;
};

enum class Need { Required, Optional };

/// Reads the members of one JSON object with their types checked. Each member that is asked for is known;
/// `refuseOthers` then finds the unknown ones, so that no list of keys has to be kept in step.
class ObjectReader {
  public:
    /// Notes a fault when `value` is no object; all members are then missing without a further word.
    ObjectReader(const nlohmann::json& value, std::string pointer, FirstFault&);

    /// Null when the member is missing; that is a fault if it is required.
    const nlohmann::json* member(std::string_view key, Need = Need::Optional);

    std::string text(std::string_view key, Need = Need::Optional, std::string otherwise = {});
    bool flag(std::string_view key, bool otherwise);
    std::optional<double> number(std::string_view key, NumberRange, Need = Need::Optional);
    std::optional<int> integer(std::string_view key, NumberRange, Need = Need::Optional);
    /// Four finite numbers with a positive width and height; nothing when missing or faulty.
    std::optional<Rect> frame(std::string_view key, Need = Need::Optional);

    /// The array's elements; empty when it is missing, no array, or longer than `most`.
    const std::vector<nlohmann::json>& list(std::string_view key, std::size_t most, Need = Need::Optional);

    template <class Enum>
    Enum choice(std::string_view key, std::span<const std::string_view> names, Enum otherwise,
                Need need = Need::Optional) {
        return static_cast<Enum>(chosen(key, names, static_cast<std::size_t>(otherwise), need));
    }

    void refuse(std::string_view key, std::string problem);
    void refuseOthers();

    bool has(std::string_view key) const;

    std::string at(std::string_view key) const { return pointerTo(pointer_, key); }

    const std::string& pointer() const { return pointer_; }

    FirstFault& faults() const { return faults_; }

  private:
    std::size_t chosen(std::string_view key, std::span<const std::string_view> names, std::size_t otherwise,
                       Need);

    const nlohmann::json& object_;
    std::string pointer_;
    FirstFault& faults_;
    std::set<std::string, std::less<>> known_;
};

/// The index of `value` in `names`, or nothing with a fault that lists what is possible.
std::optional<std::size_t> indexIn(const std::string_view* names, std::size_t count,
                                   const nlohmann::json& value, const std::string& pointer, FirstFault&);

/// "a text", "an object" …: what kind of value this is, for a message.
std::string_view kindOf(const nlohmann::json&);

} // namespace mac_model
