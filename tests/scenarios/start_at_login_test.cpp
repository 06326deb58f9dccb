#include "scenarios/acts.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace mac_model {
namespace {

const std::string label = "Start Tavrin at login";
const std::string waiting = "macOS waits for your approval under General › Login Items.";
const std::string lost =
    "macOS doesn’t find this copy of Tavrin. Move it to Applications and open it from there.";
const std::string refused = "The operation couldn’t be completed. Operation not permitted";

void openSettings(TavrinMac& mac) {
    mac.done({{"do", "menu"}, {"path", {"Tavrin", "Settings…"}}});
    mac.wait(1);
}

TavrinMac withSettings(const std::string& answer,
                       TavrinMacOptions options = trustedMac("classic-display", setUp())) {
    options.changes["loginItem"] = answer;
    auto mac = started(std::move(options));
    openSettings(mac);
    return mac;
}

json box(TavrinMac& mac) {
    const auto found = mac.find(label);
    return found.size() == 1 ? found.front() : json::object();
}

bool isChecked(TavrinMac& mac) { return box(mac).value("checked", false); }

bool isOffered(TavrinMac& mac) { return box(mac).value("enabled", true); }

int sentences(TavrinMac& mac) { return mac.shows(waiting) + mac.shows(lost) + mac.shows(refused); }

TEST(StartAtLogin, isOffAtFirstAndTurnedOnAndOff) {
    auto mac = withSettings("accepts");
    EXPECT_FALSE(isChecked(mac));
    EXPECT_TRUE(isOffered(mac)) << "macOS doesn't find an application that was never registered";
    mac.press(label);
    EXPECT_TRUE(isChecked(mac));
    mac.press(label);
    EXPECT_FALSE(isChecked(mac));
    EXPECT_EQ(sentences(mac), 0);
}

TEST(StartAtLogin, isTheSystemsToKeep) {
    TemporaryFolder folder;
    auto options = trustedMac("classic-display", setUp());
    options.profile = folder.path();
    {
        auto mac = withSettings("accepts", options);
        mac.press(label);
        mac.settle();
    }
    auto mac = withSettings("accepts", options);
    EXPECT_TRUE(isChecked(mac));
    EXPECT_FALSE(mac.defaults().dump().contains("ogin")) << "nothing of it is among Tavrin's own choices";
}

TEST(StartAtLogin, waitsForApproval) {
    auto mac = withSettings("requiresApproval");
    mac.press(label);
    EXPECT_TRUE(isChecked(mac));
    EXPECT_EQ(sentences(mac), 1);
    EXPECT_TRUE(mac.shows(waiting));
    mac.press("Open Login Items");
    mac.wait(1);
    ASSERT_EQ(mac.surfacesOf("com.apple.systempreferences").size(), 1U);
    EXPECT_EQ(mac.surfacesOf("com.apple.systempreferences")[0]["title"], "Login Items");
    mac.set("loginItem", "accepts");
    EXPECT_TRUE(mac.shows(waiting)) << "the system tells nobody";
    mac.done({{"do", "click"}, {"text", "General"}});
    mac.wait(1);
    EXPECT_EQ(sentences(mac), 0) << "asked again when Tavrin has become active";
    EXPECT_TRUE(isChecked(mac));
}

TEST(StartAtLogin, isTakenBackWhileItWaits) {
    auto mac = withSettings("requiresApproval");
    mac.press(label);
    mac.press(label);
    EXPECT_FALSE(isChecked(mac));
    EXPECT_EQ(sentences(mac), 0);
}

TEST(StartAtLogin, tellsThatThisCopyIsNotFound) {
    auto mac = withSettings("notFound");
    mac.press(label);
    EXPECT_FALSE(isChecked(mac));
    EXPECT_FALSE(isOffered(mac));
    EXPECT_EQ(sentences(mac), 1);
    EXPECT_TRUE(mac.shows(lost));
}

TEST(StartAtLogin, tellsARefusalInTheSystemsWords) {
    auto mac = withSettings("refuses");
    mac.press(label);
    EXPECT_FALSE(isChecked(mac));
    EXPECT_TRUE(isOffered(mac));
    EXPECT_EQ(sentences(mac), 1);
    EXPECT_TRUE(mac.shows(refused));
    mac.set("loginItem", "accepts");
    mac.press(label);
    EXPECT_TRUE(isChecked(mac));
    EXPECT_EQ(sentences(mac), 0);
    mac.set("loginItem", "refuses");
    mac.press(label);
    EXPECT_TRUE(isChecked(mac)) << "it could not be turned off";
    EXPECT_TRUE(mac.shows(refused));
    mac.press("close button");
    openSettings(mac);
    EXPECT_EQ(sentences(mac), 0) << "a refusal is told once";
}

} // namespace
} // namespace mac_model
