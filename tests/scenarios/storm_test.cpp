#include "scenarios/acts.h"

#include <gtest/gtest.h>
#include <random>

namespace mac_model {
namespace {

/// A person and a world that do anything at any time, chosen by a seed.
class Storm {
  public:
    explicit Storm(std::uint64_t seed) : random_(seed), mac_(options(seed)) {}

    TavrinMac& mac() { return mac_; }

    const std::string& trace() const { return trace_; }

    void blow(int steps) {
        for (int i = 0; i < steps; ++i) {
            perform(act());
            perform({{"do", "wait"}, {"seconds", pick<double>({0, 0.01, 0.1, 0.5, 2})}});
            perform({{"do", "look"}});
        }
    }

    void heal() {
        for (const auto& bundle : bundles) perform({{"do", "set"}, {"resume", bundle}});
        perform({{"do", "set"}, {"trusted", true}, {"dropsOwnersOfLongItems", false}});
        perform({{"do", "set"}, {"behindNotch", {{tavrinBundle, "no"}}}});
        perform({{"do", "start"}});
        perform({{"do", "wait"}, {"seconds", 8}});
        for (int i = 0; i < 3; ++i) perform({{"do", "key"}, {"key", "escape"}});
        perform({{"do", "wait"}, {"seconds", 8}});
    }

  private:
    static inline const std::vector<std::string> bundles{"com.apple.controlcenter", "org.example.notes",
                                                         "com.apple.systemuiserver"};

    TavrinMacOptions options(std::uint64_t seed) {
        TavrinMacOptions chosen;
        chosen.desktop = pick<std::string>({"notched-laptop", "classic-display", "two-displays"});
        chosen.seed = seed;
        for (const auto& setting : uncertaintySettings)
            chosen.model[std::string(setting.name)] = setting.values[number(setting.values.size())];
        return chosen;
    }

    std::size_t number(std::size_t below) { return random_() % below; }

    template <class T>
    T pick(std::vector<T> from) {
        return from[number(from.size())];
    }

    json act() {
        const auto bundle = pick(bundles);
        switch (number(14)) {
        case 0:
            return {{"do", "set"}, {"hang", bundle}};
        case 1:
            return {{"do", "set"}, {"resume", bundle}};
        case 2:
            return {{"do", "set"}, {"trusted", number(3) != 0}};
        case 3:
            return {{"do", "set"}, {"latency", {{bundle, pick<double>({0, 0.1, 0.4, 2})}}}};
        case 4:
            return {{"do", "terminate"}};
        case 5:
            return {{"do", "crash"}};
        case 6:
            return {{"do", "start"}};
        case 7:
            return {{"do", "key"}, {"key", "escape"}};
        case 8:
            return {{"do", "click"}, {"item", tavrinBundle}, {"button", "right"}};
        case 9:
            return {{"do", "set"},
                    {"behindNotch", {{tavrinBundle, pick<std::string>({"no", "presentItems"})}}}};
        case 10:
            return {{"do", "set"}, {"dropsOwnersOfLongItems", number(2) == 0}};
        case 11:
            return {{"do", "press"},
                    {"text", pick<std::string>({"Configure Items…", "Hide Configured Items",
                                                "Refresh Item List", "Show All Items"})}};
        default:
            return {{"do", "click"}, {"item", tavrinBundle}};
        }
    }

    void perform(const json& command) {
        auto reply = mac_.command(command);
        trace_ += command.dump() + "\n" + reply.dump() + "\n";
    }

    std::mt19937_64 random_;
    TavrinMac mac_;
    std::string trace_;
};

TEST(Storm, whateverHappensTavrinSettlesAndHidesAgain) {
    for (std::uint64_t seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Storm storm(seed);
        storm.blow(40);
        storm.heal();
        auto& mac = storm.mac();
        ASSERT_FALSE(mac.control().is_null()) << storm.trace().substr(storm.trace().size() - 2000);
        mac.settle();
        const auto stats = mac.stats();
        EXPECT_EQ(stats["tasks"], 0);
        if (isCollapsed(mac)) clickControlAndWait(mac);
        clickControl(mac);
        mac.wait(4);
        EXPECT_TRUE(isCollapsed(mac));
        mac.terminate();
        mac.wait(3);
        EXPECT_FALSE(mac.mac().program().isRunning());
        EXPECT_EQ(mac.mac().program().leftovers(), std::vector<std::string>{});
        if (HasFailure()) break;
    }
}

TEST(Storm, aSeedRunTwiceGivesTheSameTrace) {
    const auto run = [](std::uint64_t seed) {
        Storm storm(seed);
        storm.blow(60);
        return storm.trace();
    };
    EXPECT_EQ(run(7), run(7));
    EXPECT_NE(run(7), run(8));
}

} // namespace
} // namespace mac_model
