#pragma once

#include "concurrency/task.h"
#include "platform/platform.h"

#include <functional>
#include <string>
#include <string_view>

namespace tavrin::seam_check {

/// `Skipped` promises stayed untried, which is no success. `Inapplicable` ones have nothing here to be tried
/// on, such as a notch.
enum class Outcome { Passed, Failed, Skipped, Inapplicable };

struct Verdict {
    Outcome outcome = Outcome::Failed;
    std::string seen; // for a person: what was seen, or why there was nothing to see
};

inline Verdict passed(std::string seen) { return {Outcome::Passed, std::move(seen)}; }

inline Verdict failed(std::string seen) { return {Outcome::Failed, std::move(seen)}; }

inline Verdict skipped(std::string reason) { return {Outcome::Skipped, std::move(reason)}; }

inline Verdict inapplicable(std::string reason) { return {Outcome::Inapplicable, std::move(reason)}; }

/// Whether a check leaves the Mac alone; or does something that a person might notice: it writes to a
/// preferences domain of its own, shows something for a moment, drags an item of its own; or asks a person to
/// do something.
enum class Effect { Reads, Changes, Asks };

/// One promise of the platform, and how to see whether this system keeps it. `seen` names no application,
/// file or text of the user, so that a report can be sent to anybody.
struct Check {
    std::string_view family;
    std::string_view promise; // a sentence, unique among all checks
    Effect effect = Effect::Reads;
    /// Every wait in it is bounded and ends when its job is cancelled.
    std::function<Task<Verdict>(Platform)> body;
};

using Look = Verdict (*)(const Platform&);               // sees all there is at once
using LongLook = std::function<Task<Verdict>(Platform)>; // has to wait

Check reads(std::string_view family, std::string_view promise, Look look);
Check reads(std::string_view family, std::string_view promise, LongLook look);
Check changes(std::string_view family, std::string_view promise, LongLook look);
Check asks(std::string_view family, std::string_view promise, LongLook look);

} // namespace tavrin::seam_check
