#pragma once

#include "concurrency/job.h"
#include "seam_check/all_checks.h"
#include "seam_check/report.h"
#include "seam_check/runner.h"
#include "support/tavrin_mac.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace mac_model {

/// The self-check as a program on the modelled Mac.
struct SelfCheck {
    std::vector<tavrin::seam_check::Check> checks = tavrin::seam_check::allChecks();
    tavrin::seam_check::Scope scope = tavrin::seam_check::Scope::WithChanges;
    std::function<tavrin::Platform(const tavrin::Platform&)> falsify = [](const auto& platform) {
        return platform;
    };

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
};

inline tavrin::Task<> runInto(SelfCheck& self, tavrin::Platform platform) {
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
        job_ = start(platform_.scheduler, runInto(self_, self_.falsify(platform_)));
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
    for (int n = 0; n < 600 && !self.hasEnded; ++n) mac->wait(1);
    EXPECT_TRUE(self.hasEnded) << self.report.str();
    return mac;
}

} // namespace mac_model
