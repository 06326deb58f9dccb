#include "seam/lies_about_watching.h"

namespace mac_model {
namespace {

using namespace tavrin;

struct ChangesItsMind : PassedOnVisibilityService<PassedOnVisibilityAssertion> {
    using PassedOnVisibilityService::PassedOnVisibilityService;

    bool isAvailable() override { return ++asked % 2 == 1; }

    int asked = 0;
};

struct AnsweredTwice : PassedOnVisibilityAssertion {
    using PassedOnVisibilityAssertion::PassedOnVisibilityAssertion;

    void activate(Answer answer) override {
        truth->activate([answer](const auto& error) {
            answer(error);
            answer(error);
        });
    }
};

struct WithoutEffect : PassedOnVisibilityAssertion {
    using PassedOnVisibilityAssertion::PassedOnVisibilityAssertion;

    void activate(Answer answer) override { answer(std::nullopt); }
};

struct NeverAnswered : PassedOnVisibilityAssertion {
    using PassedOnVisibilityAssertion::PassedOnVisibilityAssertion;

    void activate(Answer) override {
        truth->activate([](const auto&) {});
    }
};

struct NeverEnds : PassedOnVisibilityAssertion {
    using PassedOnVisibilityAssertion::PassedOnVisibilityAssertion;

    void invalidate() override {}
};

struct Swapped : PassedOnEventMonitors {
    using PassedOnEventMonitors::PassedOnEventMonitors;

    Point pointerLocation() const override {
        const auto at = truth.pointerLocation();
        return {at.y, at.x};
    }
};

struct CopiesNothing : PassedOnEventMonitors {
    using PassedOnEventMonitors::PassedOnEventMonitors;

    Subscription watch(EventMask, std::function<void(const WatchedEvent&)>) override { return {}; }
};

struct GoesOnCopying : PassedOnEventMonitors {
    using PassedOnEventMonitors::PassedOnEventMonitors;

    Subscription watch(EventMask events, std::function<void(const WatchedEvent&)> handler) override {
        kept.push_back(truth.watch(events, std::move(handler)));
        return {};
    }

    std::vector<Subscription> kept;
};

constexpr auto service = "visibility service";
constexpr auto monitors = "event monitors";
constexpr auto sameOfItself = "The service that hides items says the same of itself each time.";
constexpr auto answeredOnce = "A list of what may show is answered once.";
constexpr auto itemLeaves = "An own item leaves the menu bar while a list is in force that it isn’t on.";
constexpr auto copied = "A move over another program is copied while it is watched for.";
constexpr auto mac = "macos-27-plain"; // whose bar has room for new items

} // namespace

std::vector<PlantedLie> liesAboutWatching() {
    return {
        lie<ChangesItsMind>("saysTwoThingsOfItself", service, {sameOfItself}, mac),
        lie<PassedOnVisibilityService<AnsweredTwice>>("isAnsweredTwice", service, {answeredOnce}, mac),
        lie<PassedOnVisibilityService<NeverAnswered>>("isNeverAnswered", service, {answeredOnce, itemLeaves},
                                                      mac),
        lie<PassedOnVisibilityService<WithoutEffect>>("hidesNothing", service, {itemLeaves}, mac),
        lie<PassedOnVisibilityService<NeverEnds>>("goesOnHiding", service, {itemLeaves}, mac),
        lie<Swapped>("swapsAcrossAndDown", monitors,
                     {"Events and monitors tell the same place of the pointer."}),
        lie<CopiesNothing>("copiesNothing", monitors, {copied}),
        lie<GoesOnCopying>("goesOnCopying", monitors, {copied}),
    };
}

} // namespace mac_model
