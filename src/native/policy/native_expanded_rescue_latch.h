#pragma once

#include "concurrency/scheduler.h"
#include "native/policy/lane_layout.h"

#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>

namespace tavrin {

/// Remembers what a revealed menu bar withholds because there is no room for it right of the notch, and lets
/// it back, one unit at a time, when there is. A unit is an application, or a single item of the system. The
/// only way to learn whether a unit fits is to let it back and look a second later.
struct NativeExpandedRescueLatch {
    struct PendingRelease {
        std::string unit;
        std::set<std::string> identifiers; // of its items
        double room = 0;                   // points that were free when it began
        Seconds time{0};                   // when it began

        bool operator==(const PendingRelease&) const = default;
    };

    enum class ReplacesExisting { No, Yes };

    /// The items that units are made of, by their identifiers.
    struct Measures {
        std::map<std::string, std::set<std::string>> itemsOfUnits;
        std::map<std::string, double> itemWidths; // points, where they were measured
    };

    static constexpr Seconds releaseTime{1.0};

    /// Takes the units that are trapped now.
    void latch(const std::set<std::string>& trapped, ReplacesExisting replaces,
               const std::optional<LaneLayout>& lane, Seconds now);

    /// Drops units whose application doesn't run any longer; `running` holds lower case.
    void retain(const std::set<std::string>& running);

    /// Lets the first of `order` back that fits the free room; false when none does, or it isn't the time.
    bool releaseFitting(const LaneLayout& lane, const Measures& measures, std::span<const std::string> order,
                        Seconds now);

    std::set<std::string> identifiers;            // the units that are withheld
    std::set<std::string> unconfirmedIdentifiers; // those among them that no scan has seen gone yet
    std::optional<LaneLayout> frontier;           // the lane when the latch was last taken
    std::optional<PendingRelease> pendingRelease;
    std::map<std::string, double> failedReleaseRooms; // points in which a unit was tried and didn't fit

  private:
    bool judgePendingRelease(const std::set<std::string>& trapped, Seconds now);
    void moveFrontier(const LaneLayout& lane);
    bool fits(const std::string& unit, const LaneLayout& lane, double room, const Measures& measures) const;
};

} // namespace tavrin
