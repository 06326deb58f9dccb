#include "serve/tree_difference.h"
#include "support/tavrin_mac.h"

#include <gtest/gtest.h>
#include <random>

namespace mac_model {
namespace {

/// What the page does with a difference (simulator/web/modules/differences.js).
json applied(json tree, const json& difference) {
    if (tree.is_array() && difference.contains("splice")) {
        const auto& [at, removed, values] =
            std::tie(difference["splice"][0], difference["splice"][1], difference["splice"][2]);
        const auto begin = tree.begin() + at.get<std::ptrdiff_t>();
        const auto place = tree.erase(begin, begin + removed.get<std::ptrdiff_t>());
        tree.insert(place, values.begin(), values.end());
    }
    for (const auto& [place, change] : difference.items()) {
        if (tree.is_array() && place == "splice") continue;
        const auto set = [&](json& value) { value = change.is_array() ? change[0] : applied(value, change); };
        if (change == 0)
            tree.erase(place);
        else if (tree.is_array())
            set(tree.at(std::stoul(place)));
        else
            set(tree[place]);
    }
    return tree;
}

class RandomTree {
  public:
    explicit RandomTree(unsigned seed) : generator_(seed) {}

    json tree(int depth) {
        switch (depth <= 0 ? pick(3) : pick(6)) {
        case 0:
            return pick(4);
        case 1:
            return std::string(1, static_cast<char>('a' + pick(4)));
        case 2:
            return json::array({pick(3), pick(3)});
        case 3:
            return array(depth);
        default:
            return object(depth);
        }
    }

    json object(int depth) {
        json result = json::object();
        for (int i = pick(5); i > 0; --i)
            result[std::string(1, static_cast<char>('a' + pick(6)))] = tree(depth - 1);
        if (pick(2) == 0) result["id"] = pick(5);
        return result;
    }

    void change(json& tree, int depth) {
        if (pick(6) == 0 || !tree.is_structured() || tree.empty())
            tree = this->tree(depth);
        else if (tree.is_array() && pick(2) == 0)
            tree.erase(tree.begin() + pick(static_cast<int>(tree.size())));
        else if (tree.is_array() && pick(2) == 0)
            tree.insert(tree.begin(), this->tree(depth));
        else
            change(*std::next(tree.begin(), pick(static_cast<int>(tree.size()))), depth - 1);
    }

  private:
    int pick(int count) { return static_cast<int>(generator_() % static_cast<unsigned>(count)); }

    json array(int depth) {
        json result = json::array();
        for (int i = pick(5); i > 0; --i) result.push_back(object(depth - 1));
        return result;
    }

    std::mt19937 generator_;
};

TEST(TreeDifference, leadsFromAnyTreeToAnyOther) {
    RandomTree random(7);
    for (int round = 0; round < 3000; ++round) {
        const auto before = random.object(4);
        auto after = round % 3 == 0 ? random.object(4) : before;
        for (int i = 0; i < round % 4; ++i) {
            json root = json::object({{"root", after}});
            random.change(root["root"], 3);
            after = root["root"].is_object() ? root["root"] : after;
        }
        const auto difference = differenceOf(before, after);
        ASSERT_EQ(applied(before, difference), after) << before << " " << after << " " << difference;
        ASSERT_EQ(difference.empty(), before == after) << before << " " << after;
    }
}

TEST(TreeDifference, sendsOnlyWhatHasChanged) {
    const json before{{"rows",
                       {{{"id", 1}, {"x", 0}, {"name", "one"}},
                        {{"id", 2}, {"x", 5}, {"name", "two"}},
                        {{"id", 3}, {"x", 9}, {"name", "three"}}}},
                      {"frame", {0, 0, 5, 5}},
                      {"open", true}};
    json after = before;
    after["rows"].erase(0);
    after["rows"][1]["x"] = 4;
    after["frame"][2] = 6;
    after.erase("open");
    const json expected{{"rows", {{"splice", {0, 1, json::array()}}, {"1", {{"x", {4}}}}}},
                        {"frame", json::array({json::array({0, 0, 6, 5})})},
                        {"open", 0}};
    EXPECT_EQ(differenceOf(before, after), expected);
}

TEST(TreeDifference, followsASessionWithSmallDifferences) {
    TavrinMac mac;
    std::mt19937 random(11);
    auto before = mac.look();
    const auto whole = before.dump().size();
    std::size_t sent = 0;
    int pictures = 0;
    for (int step = 0; step < 250; ++step) {
        const auto x = static_cast<double>(random() % 1512);
        const auto y = random() % 3 == 0 ? static_cast<double>(random() % 900) : 12.0;
        const json at = {x, y};
        if (step == 20) mac.set("trusted", true);
        if (random() % 3 == 0)
            mac.done({{"do", "click"}, {"at", at}, {"button", random() % 4 == 0 ? "right" : "left"}});
        else
            mac.done({{"do", "move"}, {"at", at}});
        mac.wait(static_cast<double>(random() % 3) * 0.2);
        auto after = mac.look();
        const auto difference = differenceOf(before, after);
        ASSERT_EQ(applied(before, difference), after);
        sent += difference.dump().size();
        pictures += difference.empty() ? 0 : 1;
        before = std::move(after);
    }
    ASSERT_GT(pictures, 100);
    EXPECT_LT(sent / static_cast<std::size_t>(pictures), whole / 5);
}

} // namespace
} // namespace mac_model
