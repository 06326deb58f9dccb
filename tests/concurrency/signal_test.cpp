#include "concurrency/signal.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace tavrin {
namespace {

TEST(PublishedSignal, handlersMaySubscribeAndUnsubscribeAnyone) {
    Signal<std::string> signal;
    std::string heard;
    Subscription own;
    Subscription next;
    Subscription added;
    own = signal.subscribe([&, text = std::string(100, 'x')](const std::string& word) {
        added = signal.subscribe([&](const std::string& later) { heard += "added:" + later + " "; });
        own.cancel();
        next.cancel();
        heard += word + std::to_string(text.size()) + " "; // what the handler owns is still there
    });
    next = signal.subscribe([&](const std::string&) { heard += "unsubscribed "; });
    const auto last = signal.subscribe([&](const std::string& word) { heard += "last:" + word + " "; });
    signal.emit("one");
    signal.emit("two");
    EXPECT_EQ(heard, "one100 last:one last:two added:two ");
    EXPECT_FALSE(own);
}

TEST(PublishedSignal, handlersKeepTheirState) {
    Signal<> signal;
    int last = 0;
    const auto subscription = signal.subscribe([&last, count = 0]() mutable { last = ++count; });
    signal.emit();
    signal.emit();
    EXPECT_EQ(last, 2);
}

TEST(PublishedSignal, destroyedInAHandlerItCallsNobodyElse) {
    auto published = std::make_unique<Published<std::string>>("old");
    std::string heard;
    const auto first = published->subscribe([&](const std::string& value) {
        published.reset();
        heard += value;
    });
    auto second = published->subscribe([&](const std::string&) { heard += " second"; });
    published->set("new");
    EXPECT_EQ(heard, "new");
    EXPECT_TRUE(second);
    second.cancel();
}

TEST(PublishedSignal, onlyChangesAreTold) {
    Published<int> published(1);
    std::vector<int> heard;
    auto subscription = published.subscribe([&](int value) { heard.push_back(value); });
    for (const int value : {1, 2, 2, 1}) published.set(value);
    subscription = Subscription{};
    published.set(5);
    EXPECT_EQ(heard, (std::vector{2, 1}));
}

TEST(PublishedSignal, valueSetInAHandlerSupersedesTheOneBeingTold) {
    Published<int> published(0);
    std::vector<int> heard;
    const auto correcting = published.subscribe([&](int value) {
        if (value == 1) published.set(2);
    });
    const auto hearing = published.subscribe([&](int value) { heard.push_back(value); });
    published.set(1);
    EXPECT_EQ(heard, (std::vector{2}));
}

} // namespace
} // namespace tavrin
