#pragma once

#include "pins/store/pinned_action.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// The form in which pins are kept: a JSON object, described in docs/pins.md. Any thread.
namespace tavrin::PinnedActionDocument {

inline constexpr std::int64_t version = 1; // the newest that is read, and the one that is written

/// All of a document's pins in their order; none when any part of it can't be read or the version is newer.
std::optional<std::vector<PinnedAction>> decode(std::span<const std::byte> document);

std::vector<std::byte> encode(std::span<const PinnedAction> pins);

} // namespace tavrin::PinnedActionDocument
