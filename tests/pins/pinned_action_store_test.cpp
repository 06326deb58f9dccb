#include "pins/pins_for_tests.h"
#include "pins/store/pinned_action_document.h"
#include "pins/store/pinned_action_store.h"
#include "seam/system/text_icu.h"
#include "support/counting_defaults.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <string>

namespace tavrin {

namespace {

constexpr auto least = std::numeric_limits<std::int64_t>::min();
constexpr auto most = std::numeric_limits<std::int64_t>::max();

using Bytes = std::vector<std::byte>;

/// A store of the pins "a", "b", "c" and so on, the first with the identity 1.
class PinnedActionStoreTest : public testing::Test {
  protected:
    explicit PinnedActionStoreTest(std::string_view names = "abcd") {
        std::uint8_t number = 0;
        for (const char name : names) store.add(pinCalled(std::string(1, name), ++number));
        defaults.writes = 0;
    }

    std::string names() const {
        std::string names;
        for (const auto& pin : store.pins()) names += pin.name;
        return names;
    }

    PinnedAction pin(std::uint8_t number) const { return store.pin(idOf(number)).value(); }

    /// The pins that a store made now would find.
    PinnedActionStore::Pins stored() { return PinnedActionStore(defaults, *text).pins(); }

    /// Each act must have written this often since the last question, and left the list stored as it is.
    void expectWrites(int writes, const char* act) {
        EXPECT_EQ(defaults.writes, writes) << act;
        EXPECT_EQ(published, writes) << act;
        EXPECT_EQ(stored(), store.pins()) << act;
        defaults.writes = published = 0;
    }

    std::unique_ptr<Text> text = mac_model::makeIcuText();
    CountingDefaults defaults;
    PinnedActionStore store{defaults, *text};
    int published = 0;
    Subscription subscription = store.onPinsChanged([this](const auto& pins) {
        ++published;
        EXPECT_EQ(stored(), pins) << "published before it was saved";
    });
};

} // namespace

TEST_F(PinnedActionStoreTest, addsATargetOnce) {
    published = 0;
    auto twin = pinCalled("A…", 9);
    twin.menuOrigin = PinnedMenuOrigin::StatusItem;
    twin.path.front().identifier = "other";
    EXPECT_EQ(store.add(twin), pin(1));
    expectWrites(0, "a twin");

    auto others = std::vector(4, twin);
    others[0].menuOrigin = PinnedMenuOrigin::AppMenuBar;
    others[1].statusItem.index = 1;
    others[2].path.push_back({"", {}});
    others[3].bundleIdentifier = "org.example.App";
    for (auto& other : others) EXPECT_EQ(store.add(other), other);
    expectWrites(4, "others");
    EXPECT_EQ(names(), "abcdA…A…A…A…");
}

TEST_F(PinnedActionStoreTest, changesOnlyWhatIsAsked) {
    published = 0;
    store.rename(idOf(2), " \n ");
    store.rename(idOf(7), "z");
    store.markConfirmed(idOf(7));
    store.recordRun(idOf(7), "lost");
    store.setHotKey(idOf(7), HotKeyShortcut(4, commandKeyFlag));
    store.recordRun(idOf(1), std::nullopt);
    store.clearFailures("never");
    expectWrites(0, "nothing to change");

    store.rename(idOf(2), "\t Bee \n");
    store.markConfirmed(idOf(1));
    store.recordRun(idOf(1), "It failed.");
    store.setHotKey(idOf(3), HotKeyShortcut(4, commandKeyFlag));
    expectWrites(4, "changes");
    store.markConfirmed(idOf(1));
    store.recordRun(idOf(1), "It failed.");
    store.setHotKey(idOf(3), HotKeyShortcut(4, commandKeyFlag));
    expectWrites(0, "the same again");

    EXPECT_EQ(names(), "aBeecd");
    EXPECT_TRUE(pin(1).hasConfirmedFirstRun && !pin(2).hasConfirmedFirstRun);
    EXPECT_EQ(pin(1).lastFailure, "It failed.");
    store.recordRun(idOf(1), std::nullopt);
    store.setHotKey(idOf(3), std::nullopt);
    expectWrites(2, "taken back");
    EXPECT_FALSE(pin(1).lastFailure || pin(3).hotKey);
}

TEST_F(PinnedActionStoreTest, savesAlsoWhenNothingComesOut) {
    published = 0;
    store.remove(idOf(7));
    store.rename(idOf(1), "a");
    store.move(std::set<std::int64_t>{1}, 1);
    EXPECT_EQ(defaults.writes, 3);
    EXPECT_EQ(published, 0);
    store.remove(idOf(3));
    EXPECT_EQ(names(), "abd");
}

TEST_F(PinnedActionStoreTest, clearsAndFillsAllAtOnce) {
    for (const std::uint8_t number : std::initializer_list<std::uint8_t>{1, 2, 3})
        store.recordRun(idOf(number), number == 2 ? "Denied" : "Denied.");
    defaults.writes = published = 0;
    store.clearFailures("Denied.");
    expectWrites(1, "clear");
    EXPECT_EQ(pin(2).lastFailure, "Denied");
    EXPECT_FALSE(pin(1).lastFailure || pin(3).lastFailure);

    int asked = 0;
    store.fillMissingIcons([&asked](const std::string&) {
        ++asked;
        return std::nullopt;
    });
    expectWrites(0, "no icons");
    store.fillMissingIcons([](const std::string& bundle) { return Bytes(bundle.size()); });
    expectWrites(1, "icons");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(pin(4).iconPng, Bytes(15));
    store.fillMissingIcons([](const std::string&) { return Bytes(3); });
    expectWrites(0, "icons that are there");
}

TEST_F(PinnedActionStoreTest, reordersByOffsets) {
    struct Move {
        std::set<std::int64_t> offsets;
        std::int64_t destination;
        const char* expected;
    };

    for (const auto& [offsets, destination, expected] : {
             Move{{0}, 2, "bacd"},
             Move{{0}, 4, "bcda"},
             Move{{3}, 0, "dabc"},
             Move{{0, 2}, 4, "bdac"},
             Move{{1, 3}, 0, "bdac"},
             Move{{1, 3}, 2, "abdc"},
             Move{{2}, most, "abdc"},
             Move{{2}, least, "cabd"},
             Move{{-1, 1, 4, most}, 0, "bacd"},
             Move{{0, 1, 2, 3}, 2, "abcd"},
         }) {
        PinnedActionStore fresh(defaults, *text);
        fresh.move(offsets, destination);
        std::string names;
        for (const auto& pin : fresh.pins()) names += pin.name;
        EXPECT_EQ(names, expected) << destination;
        defaults.set({}, PinnedActionStore::key, {PinnedActionDocument::encode(store.pins())});
    }
    defaults.writes = published = 0;
    store.move(std::set<std::int64_t>{-1, 4}, 0);
    expectWrites(0, "offsets outside");
}

TEST_F(PinnedActionStoreTest, swapsNeighbours) {
    published = 0;
    for (const auto& [number, distance] :
         {std::pair<std::uint8_t, std::int64_t>{1, -1}, {4, 1}, {2, most}, {2, least}, {7, 0}})
        store.move(idOf(number), distance);
    expectWrites(0, "outside the list");
    store.move(idOf(1), 3);
    store.move(idOf(3), -1);
    expectWrites(2, "swaps");
    EXPECT_EQ(names(), "dcba");
}

TEST_F(PinnedActionStoreTest, putsAsideWhatItCannotRead) {
    const DefaultsData later = [] {
        const std::string_view json = R"({"version":2,"pins":[],"new":"/"})";
        const auto bytes = std::as_bytes(std::span(json));
        return DefaultsData(bytes.begin(), bytes.end());
    }();
    defaults.set({}, PinnedActionStore::key, {later});
    defaults.set({}, PinnedActionStore::unreadableKey, {std::string("older")});
    PinnedActionStore fresh(defaults, *text);
    EXPECT_TRUE(fresh.pins().empty());
    EXPECT_EQ(defaults.values.at(std::string(PinnedActionStore::unreadableKey)), DefaultsValue{later});
    EXPECT_EQ(defaults.values.at(std::string(PinnedActionStore::key)), DefaultsValue{later});

    fresh.add(pinCalled("a", 1));
    EXPECT_EQ(stored().size(), 1u);
    EXPECT_EQ(defaults.values.at(std::string(PinnedActionStore::unreadableKey)), DefaultsValue{later});

    CountingDefaults foreign;
    foreign.values.emplace(PinnedActionStore::key, DefaultsValue{std::string("text")});
    EXPECT_TRUE(PinnedActionStore(foreign, *text).pins().empty());
    EXPECT_EQ(foreign.writes, 0);
}

} // namespace tavrin
