#include "seam/lies_about_applications.h"
#include "seam/lies_about_input.h"
#include "seam/lies_about_status_items.h"
#include "seam/lies_about_stored_things.h"
#include "seam/lies_about_time.h"
#include "seam/lies_about_watching.h"
#include "seam/lies_about_windows.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iterator>
#include <set>

namespace mac_model {
namespace {

using tavrin::seam_check::Outcome;

std::vector<PlantedLie> allLies() {
    std::vector<PlantedLie> all;
    for (auto* some : {liesAboutTime, liesAboutStoredThings, liesAboutApplications, liesAboutInput,
                       liesAboutStatusItems, liesAboutWatching, liesAboutWindows}) {
        auto lies = some();
        all.insert(all.end(), std::make_move_iterator(lies.begin()), std::make_move_iterator(lies.end()));
    }
    return all;
}

class PlantedLies : public testing::TestWithParam<PlantedLie> {};

TEST_P(PlantedLies, areCaught) {
    const auto& planted = GetParam();
    SelfCheck self;
    std::erase_if(self.checks, [&](const auto& check) { return check.family != planted.family; });
    std::shared_ptr<void> lie; // outlives the Mac, on which the program is still running
    self.falsify = [&](const tavrin::Platform& real) { return planted.tell(real, lie); };
    const auto mac =
        runOnMac(self, {.desktop = planted.desktop, .changes = {{"accessibilityTrusted", true}}});
    for (const auto promise : planted.broken)
        EXPECT_EQ(self.on(promise).outcome, Outcome::Failed) << promise << "\n" << self.report.str();
}

INSTANTIATE_TEST_SUITE_P(Lies, PlantedLies, testing::ValuesIn(allLies()),
                         [](const auto& info) { return info.param.name; });

TEST(PlantedLiesTogether, breakEveryPromise) {
    std::set<std::string_view> broken;
    for (const auto& lie : allLies()) broken.insert(lie.broken.begin(), lie.broken.end());
    for (const auto& check : tavrin::seam_check::allChecks())
        EXPECT_TRUE(broken.contains(check.promise)) << "no lie breaks it: " << check.promise;
}

} // namespace

void PrintTo(const PlantedLie& lie, std::ostream* out) { *out << lie.name; }

} // namespace mac_model
