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
    bool isAvailable() override { return isThere; }

    std::unique_ptr<VisibilityAssertion> make(std::span<const int>,
                                              std::span<const std::string> bundles) override {
        if (!makes) return nullptr;
        return std::make_unique<Assertion>(*this, std::string(bundles.empty() ? "" : bundles.front()));
    }

    /// Answers the list of that number.
    void accept(std::size_t number) { answers[number - 1](std::nullopt); }

    void reject(std::size_t number, std::string error) { answers[number - 1](std::move(error)); }

    bool isThere = true;
    bool makes = true;
    std::vector<VisibilityAssertion::Answer> answers;
    std::vector<std::string> log; // "+A" when a list with that first bundle is activated, "-A" when it ends

  private:
    class Assertion final : public VisibilityAssertion {
      public:
        Assertion(FakeVisibilityService& service, std::string name)
            : service_(service)
            , name_(std::move(name)) {}

        Assertion(const Assertion&) = delete;
        Assertion& operator=(const Assertion&) = delete;

        ~Assertion() override { end(); }

        void activate(Answer answer) override {
            service_.log.push_back("+" + name_);
            service_.answers.push_back(std::move(answer));
            isActivated_ = true;
        }

        void invalidate() override { end(); }

      private:
        void end() {
            if (std::exchange(isActivated_, false)) service_.log.push_back("-" + name_);
        }

        FakeVisibilityService& service_;
        std::string name_;
        bool isActivated_ = false;
    };
};

} // namespace tavrin
