#pragma once

#include "platform/visibility_service.h"

#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace tavrin {

/// Numbers its lists from 1 and notes what happens to them; the test gives the answers, when it likes.
class FakeVisibilityService final : public VisibilityService {
  public:
    using Bundles = std::vector<std::string>;

    bool isAvailable() override { return isThere; }

    std::unique_ptr<VisibilityAssertion> make(std::span<const int>,
                                              std::span<const std::string> bundles) override {
        if (!makes) return nullptr;
        return std::make_unique<Assertion>(*this, Bundles(bundles.begin(), bundles.end()));
    }

    /// The list that was accepted last and has not ended; null when nothing is restricted. Only with
    /// `acceptsAtOnce`.
    const std::vector<std::string>* inForce() const {
        return accepted_.empty() ? nullptr : &accepted_.back().second;
    }

    /// Answers the list of that number.
    void accept(std::size_t number) { answers[number - 1](std::nullopt); }

    void reject(std::size_t number, std::string error) { answers[number - 1](std::move(error)); }

    bool isThere = true;
    bool makes = true;
    bool acceptsAtOnce = false;
    std::vector<VisibilityAssertion::Answer> answers;
    std::vector<std::string> log; // "+A" when a list with that first bundle is activated, "-A" when it ends

  private:
    class Assertion final : public VisibilityAssertion {
      public:
        Assertion(FakeVisibilityService& service, Bundles bundles)
            : service_(service)
            , bundles_(std::move(bundles)) {}

        Assertion(const Assertion&) = delete;
        Assertion& operator=(const Assertion&) = delete;

        ~Assertion() override { end(); }

        void activate(Answer answer) override {
            service_.log.push_back("+" + bundles_.front());
            isActivated_ = true;
            service_.answers.push_back(answer);
            if (!service_.acceptsAtOnce) return;
            service_.accepted_.push_back({this, bundles_});
            answer(std::nullopt);
        }

        void invalidate() override { end(); }

      private:
        void end() {
            if (!std::exchange(isActivated_, false)) return;
            service_.log.push_back("-" + bundles_.front());
            std::erase_if(service_.accepted_, [this](const auto& entry) { return entry.first == this; });
        }

        FakeVisibilityService& service_;
        Bundles bundles_;
        bool isActivated_ = false;
    };

    std::vector<std::pair<const Assertion*, Bundles>> accepted_;
};

} // namespace tavrin
