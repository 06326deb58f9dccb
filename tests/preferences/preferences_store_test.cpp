#include "preferences/defaults_json.h"
#include "support/mac_fixture.h"

#include <fstream>
#include <limits>

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

TEST_F(PreferencesStoreTest, EveryKindOfValueSurvivesUnchanged) {
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

TEST_F(PreferencesStoreTest, DesktopFileGivesWhatTheProfileNeitherHasNorRemoved) {
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

TEST_F(PreferencesStoreTest, ChangesAreWrittenTogetherAMomentLater) {
    const auto store = open().value();
    const auto file = folder.path() / "Preferences" / "d.json";
    store->set({"d"}, "a", {true});
    EXPECT_FALSE(std::filesystem::exists(file));
    scheduler.advance(tavrin::Seconds{0.1});
    EXPECT_TRUE(std::filesystem::exists(file));
    store->set({"d"}, "b", {true});
    store->flush({"d"});
    EXPECT_EQ(open().value()->keys({"d"}).size(), 2U);
}

TEST_F(PreferencesStoreTest, UnusableProfileIsRefusedAndLeftAsItIs) {
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

TEST_F(PreferencesStoreTest, FailedWriteKeepsTheChangesAndIsTriedAgain) {
    const auto store = open().value();
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
    EXPECT_EQ(open().value()->boolean({"d"}, "a"), true);
}

} // namespace mac_model
