#include "main_tour.h"

#include "main_tour_stations.h"

#include <cstdlib>
#include <system_error>

namespace mac_model {

namespace {

class TemporaryProfile {
  public:
    TemporaryProfile() {
        std::error_code error;
        auto pattern = (std::filesystem::temp_directory_path(error) / "tavrin-tour-XXXXXX").string();
        if (!error && ::mkdtemp(pattern.data())) path_ = pattern;
    }

    TemporaryProfile(const TemporaryProfile&) = delete;
    TemporaryProfile& operator=(const TemporaryProfile&) = delete;

    ~TemporaryProfile() {
        std::error_code ignored;
        if (!path_.empty()) std::filesystem::remove_all(path_, ignored);
    }

    /// Empty when no folder could be made.
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

} // namespace

bool playTavrinTour(const Boot& boot, const std::string& bundle, std::ostream& out) {
    const TemporaryProfile profile;
    if (profile.path().empty()) {
        out << "No temporary folder can be made for the profile.\n";
        return false;
    }
    std::size_t shown = 0;
    for (const auto& day : {firstDay(bundle), nextMorning(bundle)}) {
        const auto mac = boot(profile.path());
        if (!mac) {
            out << mac.error() << "\n";
            return false;
        }
        if (!playTour((*mac)->driver(), day, shown + 1, out)) return false;
        shown += day.size();
    }
    out << "\nEach step's outcome was seen.\n";
    return true;
}

} // namespace mac_model
