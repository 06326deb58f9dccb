#pragma once

#include "concurrency/job.h"
#include "concurrency/waits.h"
#include "seam/passed_on.h"
#include "seam_check/all_checks.h"
#include "seam_check/report.h"
#include "seam_check/runner.h"
#include "support/tavrin_mac.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace mac_model {

/// What another process sees of the kept text: only what was handed over.
class SeenByOthers final : public tavrin::PassedOnDefaults {
  public:
    using PassedOnDefaults::PassedOnDefaults;

    void synchronize(const tavrin::DefaultsDomain& domain) override {
        truth.synchronize(domain);
        const tavrin::DefaultsDomain scratch{tavrin::seam_check::scratchDomain};
        if (domain == scratch) kept = truth.value(scratch, tavrin::seam_check::keptKey);
    }

    std::optional<tavrin::DefaultsValue> kept;
};

/// The self-check as a program on the modelled Mac, with a person who does what it asks.
struct SelfCheck {
    SelfCheck() = default;
    SelfCheck(const SelfCheck&) = delete;
    SelfCheck& operator=(const SelfCheck&) = delete;

    /// Another process sees what is stored; keys are pressed on the Mac's keyboard.
    tavrin::seam_check::Surroundings surroundings{
        [this](const std::string& text) { return isStoredForOthers(text); },
        [this](tavrin::KeyCode, tavrin::CarbonModifiers) { pressHotKey(); }};
    std::vector<tavrin::seam_check::Check> checks = tavrin::seam_check::allChecks(surroundings);
    tavrin::seam_check::Scope scope = tavrin::seam_check::Scope::Guided;
    std::function<tavrin::Platform(const tavrin::Platform&)> falsify = [](const auto& platform) {
        return platform;
    };
    bool isPersonThere = true;

    TavrinMac* mac = nullptr;
    std::unique_ptr<SeenByOthers> others{};
    std::vector<tavrin::seam_check::CheckResult> results{};
    std::ostringstream report{};
    bool hasEnded = false;

    /// The verdict on a promise; a promise that no check makes fails the test.
    tavrin::seam_check::Verdict on(std::string_view promise) const {
        for (const auto& result : results)
            if (result.promise == promise) return result.verdict;
        ADD_FAILURE() << "no check is called " << promise;
        return {};
    }

    std::ptrdiff_t count(tavrin::seam_check::Outcome outcome) const {
        return std::ranges::count_if(results,
                                     [&](const auto& one) { return one.verdict.outcome == outcome; });
    }

    bool isStoredForOthers(const std::string& text) const {
        return others && others->kept == tavrin::DefaultsValue{text};
    }

    void pressHotKey() const {
        mac->mac().scheduler().callInWorldAfter(tavrin::Seconds{0}, [this] {
            mac->mac().person().pressKey(
                "f19", {Modifier::Command, Modifier::Shift, Modifier::Option, Modifier::Control});
        });
    }

    void doAsAsked() const {
        if (!isPersonThere) return;
        if (mac->shows("Please click the round check mark above, once.")) mac->clickItem(tavrinBundle);
        if (mac->shows("Please click the round check mark above with the right button, once."))
            mac->rightClickItem(tavrinBundle);
        if (mac->shows("Please press the Escape key, once.")) mac->key("escape");
    }
};

/// Begins when the test has the Mac at hand.
inline tavrin::Task<> runInto(SelfCheck& self, tavrin::Platform platform) {
    while (!self.mac) (void)co_await tavrin::sleepFor(tavrin::Seconds{0.1});
    tavrin::seam_check::writeHead(self.report, platform, "model");
    self.results = co_await runChecks(platform, self.checks, self.scope, [&self](const auto& result) {
        tavrin::seam_check::writeResult(self.report, result);
    });
    tavrin::seam_check::writeTotals(self.report, self.results);
    self.hasEnded = true;
}

class SelfCheckDelegate final : public tavrin::ApplicationDelegate {
  public:
    SelfCheckDelegate(SelfCheck& self, tavrin::Platform& platform) : self_(self), platform_(platform) {}

    void applicationDidFinishLaunching() override {
        self_.others = std::make_unique<SeenByOthers>(platform_.defaults);
        const auto seen = with(*self_.others, platform_);
        job_ = start(platform_.scheduler, runInto(self_, self_.falsify(seen)));
    }

    bool applicationShouldHandleReopen(bool) override { return true; }

    bool applicationShouldTerminateAfterLastWindowClosed() override { return false; }

    tavrin::TerminateReply applicationShouldTerminate() override { return tavrin::TerminateReply::Now; }

  private:
    SelfCheck& self_;
    tavrin::Platform& platform_;
    tavrin::Job<> job_;
};

/// A Mac with the self-check launched on it, which has run when this returns.
inline std::unique_ptr<TavrinMac> runOnMac(SelfCheck& self, TavrinMacOptions options = {}) {
    options.changes["bundles"]["/System/Library/CoreServices/Finder.app"] = "com.apple.finder";
    options.program = [&self](tavrin::Platform& platform) {
        return std::make_unique<SelfCheckDelegate>(self, platform);
    };
    auto mac = std::make_unique<TavrinMac>(std::move(options));
    self.mac = mac.get();
    for (int n = 0; n < 600 && !self.hasEnded; ++n) {
        mac->wait(1);
        self.doAsAsked();
    }
    EXPECT_TRUE(self.hasEnded) << self.report.str();
    return mac;
}

} // namespace mac_model
