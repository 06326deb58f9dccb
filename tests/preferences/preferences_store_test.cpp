#include "desktop/defaults_json.h"
#include "support/mac_fixture.h"
#include "support/temporary_folder.h"

#include <fstream>
#include <limits>
#include <sys/stat.h>

namespace mac_model {

namespace {

using tavrin::DefaultsArray;
using tavrin::DefaultsData;
using tavrin::DefaultsDictionary;
using tavrin::DefaultsDomain;
using tavrin::DefaultsValue;

const DefaultsDomain own{"org.example/../program", DefaultsDomain::Host::Any};
const DefaultsDomain thisHost{".GlobalPreferences", DefaultsDomain::Host::Current};

class PreferencesStoreTest : public testing::Test {
  protected:
    auto open() { return PreferencesStore::create(scheduler, folder.path(), desktop); }

    TemporaryFolder folder;
    tavrin::VirtualScheduler scheduler;
    DesktopFile desktop;
};

} // namespace

TEST_F(PreferencesStoreTest, everyKindOfValueSurvivesUnchanged) {
    const DefaultsData bytes{std::byte{0}, std::byte{255}, std::byte{62}, std::byte{63}};
    const DefaultsDictionary values{
        {"true", {true}},
        {"integer", {std::int64_t{1}}},
        {"least", {std::numeric_limits<std::int64_t>::min()}},
        {"real", {1.0}},
        {"infinite", {-std::numeric_limits<double>::infinity()}},
        {"text", {std::string("é\n\"")}},
        {"no UTF-8", {std::string("\xff\xfe")}},
        {"data", {bytes}},
        {"empty data", {DefaultsData{}}},
        {"array", {DefaultsArray{{false}, {DefaultsArray{}}, {2.5}}}},
        {"dictionary", {DefaultsDictionary{{"$data", {std::string("x")}}, {"b", {DefaultsDictionary{}}}}}},
    };
    auto store = open().value();
    for (const auto& [key, value] : values) store->set(own, key, value);
    store->set(thisHost, "k", {0.01});
    store.reset();
    store = open().value();
    EXPECT_EQ(store->keys(own).size(), values.size());
    for (const auto& [key, value] : values) EXPECT_EQ(store->value(own, key), value) << key;
    EXPECT_EQ(store->value(thisHost, "k"), DefaultsValue{0.01});
    EXPECT_EQ(store->value({thisHost.name, DefaultsDomain::Host::Any}, "k"), std::nullopt);
}

TEST_F(PreferencesStoreTest, desktopFileGivesWhatTheProfileNeitherHasNorRemoved) {
    desktop.defaults["d"] = {{"kept", 1}, {"changed", 1}, {"removed", 1}};
    auto store = open().value();
    store->set({"d"}, "changed", {std::int64_t{2}});
    store->remove({"d"}, "removed");
    store.reset();
    desktop.defaults["d"]["new"] = 3;
    store = open().value();
    EXPECT_EQ(store->keys({"d"}), (std::vector<std::string>{"changed", "kept", "new"}));
    EXPECT_EQ(store->number({"d"}, "changed"), 2);
}

TEST_F(PreferencesStoreTest, changesAreWrittenTogetherAMomentLater) {
    auto store = open().value();
    const auto file = folder.path() / "Preferences" / "d.json";
    store->set({"d"}, "a", {true});
    EXPECT_FALSE(std::filesystem::exists(file));
    scheduler.advance(tavrin::Seconds{0.1});
    EXPECT_TRUE(std::filesystem::exists(file));
    store->set({"d"}, "b", {true});
    store->flush({"d"});
    store = nullptr;
    EXPECT_EQ(open().value()->keys({"d"}).size(), 2U);
}

TEST_F(PreferencesStoreTest, unusableProfileIsRefusedAndLeftAsItIs) {
    const auto file = folder.path() / "Preferences" / "d.json";
    {
        const auto made = open();
    }
    for (const std::string text : {"{\"a\": tru", "[]", "{\"a\": null}", "{\"a\": {\"$data\": \"?\"}}", ""}) {
        std::ofstream(file) << text;
        const auto refused = open();
        ASSERT_FALSE(refused) << text;
        EXPECT_NE(refused.error().find(file.string()), std::string::npos) << refused.error();
        std::ifstream unchanged(file);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(unchanged), {}), text);
    }
    const auto refused = PreferencesStore::create(scheduler, file, desktop);
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().find(file.string()), std::string::npos) << refused.error();
}

TEST_F(PreferencesStoreTest, failedWriteKeepsTheChangesAndIsTriedAgain) {
    auto store = open().value();
    const auto blocked = folder.path() / "Preferences" / "d.json";
    std::filesystem::create_directories(blocked / "x");
    store->set({"d"}, "a", {true});
    store->flush();
    ASSERT_TRUE(store->lastWriteError());
    EXPECT_NE(store->lastWriteError()->find(blocked.string()), std::string::npos);
    EXPECT_EQ(store->boolean({"d"}, "a"), true);
    std::filesystem::remove_all(blocked);
    store->flush();
    EXPECT_FALSE(store->lastWriteError());
    store = nullptr;
    EXPECT_EQ(open().value()->boolean({"d"}, "a"), true);
}

TEST_F(PreferencesStoreTest, profileBelongsToOneMacAtATime) {
    auto first = open().value();
    first->set({"d"}, "a", {true});
    const auto second = open();
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error(), "The profile folder \"" + folder.path().string() +
                                  "\" can't be used: another modelled Mac has it open.");
    first = nullptr;
    EXPECT_EQ(open().value()->boolean({"d"}, "a"), true);
}

TEST_F(PreferencesStoreTest, linksAndPipesInTheProfileHarmNothingOutside) {
    namespace fs = std::filesystem;
    open().value()->flush();
    const auto preferences = folder.path() / "Preferences";
    const auto outside = folder.path() / "outside";
    std::ofstream(outside) << "precious";
    for (const auto* name : {".writable", ".writable.new", "linked.json", "linked.json.new"})
        fs::create_symlink(outside, preferences / name);
    ASSERT_EQ(::mkfifo((preferences / "piped.json").c_str(), 0600), 0);
    ASSERT_FALSE(open()) << "a link to what is no JSON is read as a broken file";
    std::ofstream(outside, std::ios::trunc) << "{\"a\": true}";

    auto store = open().value();
    EXPECT_EQ(store->boolean({"linked"}, "a"), true);
    EXPECT_TRUE(store->keys({"piped"}).empty());
    store->set({"linked"}, "a", {false});
    store->set({"piped"}, "a", {false});
    store->flush();
    EXPECT_EQ(store->lastWriteError(), std::nullopt);
    store = nullptr;
    std::ifstream kept(outside);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "{\"a\": true}");
    store = open().value();
    EXPECT_EQ(store->boolean({"linked"}, "a"), false);
    EXPECT_EQ(store->boolean({"piped"}, "a"), false);
    store = nullptr;

    fs::remove(preferences / ".lock");
    ASSERT_EQ(::mkfifo((preferences / ".lock").c_str(), 0600), 0);
    EXPECT_FALSE(open());
}

TEST_F(PreferencesStoreTest, whatAKilledMacLeftBesideItsFilesIsClearedAway) {
    open().value()->flush();
    const auto leftover = folder.path() / "Preferences" / ".d.json.a1B2c3";
    std::ofstream(leftover) << "{\"half\": ";
    EXPECT_TRUE(open());
    EXPECT_FALSE(std::filesystem::exists(leftover));
}

} // namespace mac_model
