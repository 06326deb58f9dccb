#pragma once

#include "concurrency/scheduler.h"
#include "driver/modelled_mac.h"
#include "serve/broadcast.h"
#include "serve/trace.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

struct DesktopChoice {
    std::string name;
    DesktopFile desktop;
};

/// A modelled Mac in real time: its virtual clock follows a real one, and what it shows is broadcast whenever
/// it changes. Nothing runs while nothing is due. Main thread of `clock`.
class LiveMac {
  public:
    using Start = std::function<std::expected<std::unique_ptr<ModelledMac>, std::string>(DesktopFile)>;

    /// There is at least one choice.
    LiveMac(Scheduler& clock, Broadcast& broadcast, std::vector<DesktopChoice> choices, Start start)
        : clock_(clock)
        , broadcast_(broadcast)
        , choices_(std::move(choices))
        , start_(std::move(start)) {}

    LiveMac(const LiveMac&) = delete;
    LiveMac& operator=(const LiveMac&) = delete;
    ~LiveMac();

    /// Starts the Mac of that name in place of the present one, with another major version of macOS if one is
    /// given. The error is one sentence. The present Mac stays when there is no such choice; otherwise it has
    /// made room and starts again, and where that fails, too, every command but "desktop" is answered with
    /// the reason.
    std::expected<void, std::string> show(const std::string& name, std::optional<int> major);

    /// A command of the driving protocol, or one of the world around the Mac (docs/page.md).
    nlohmann::json command(const nlohmann::json&);

    /// There is one once `show` has succeeded, and unless it has failed since.
    ModelledMac& modelled() { return *modelled_; }

  private:
    std::expected<void, std::string> start(const DesktopChoice&);
    void stop();
    nlohmann::json outcome(const nlohmann::json&);
    std::expected<void, std::string> chooseDesktop(const nlohmann::json&);
    std::expected<void, std::string> relaunch(const nlohmann::json&);
    void followClock();
    void waitForNext();
    void publish();
    nlohmann::json state();
    nlohmann::json surroundings() const;

    VirtualScheduler& scheduler() { return modelled_->mac().scheduler(); }

    Seconds clockTime() const { return clock_.now() - beginning_; }

    Scheduler& clock_;
    Broadcast& broadcast_;
    std::vector<DesktopChoice> choices_;
    Start start_;
    std::unique_ptr<ModelledMac> modelled_;
    std::unique_ptr<Trace> trace_;
    DesktopChoice shown_;
    std::string whyNone_;  // the reason why there is no Mac, a sentence
    Seconds beginning_{0}; // on the clock, of the Mac's time
    tavrin::TimerIdentifier timer_ = tavrin::TimerIdentifier::None;
    std::optional<tavrin::Seconds> wakeTime_; // on the clock, of the timer
};

} // namespace mac_model
