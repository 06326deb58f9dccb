#include "core/announcements.h"

#include <optional>
#include <string>

namespace tavrin {

Announcements::Announcements(Application& application, const BarReadings& readings)
    : failures_(readings.errorMessage.subscribe([&application](const std::optional<std::string>& sentence) {
        if (sentence) application.announce(*sentence);
    }))
    , progress_(readings.applyProgress.subscribe([&application](const std::string& progress) {
        if (!progress.empty()) application.announce(progress);
    })) {}

} // namespace tavrin
