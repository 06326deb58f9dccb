#pragma once

#include "platform/defaults.h"
#include "seam/system/program_side.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// The program's preferences. A change is seen at once, but stays with the process until it synchronizes the
/// domain, or for `handingTime`: what a process that ends before has changed is lost.
class ProgramDefaults final : public tavrin::Defaults {
  public:
    static constexpr Seconds handingTime{10};

    explicit ProgramDefaults(ProgramSide);
    ProgramDefaults(const ProgramDefaults&) = delete;
    ProgramDefaults& operator=(const ProgramDefaults&) = delete;

    DefaultsDomain ownDomain() const override;
    std::optional<DefaultsValue> value(const DefaultsDomain&, std::string_view key) const override;
    void set(const DefaultsDomain&, std::string_view key, DefaultsValue) override;
    void remove(const DefaultsDomain&, std::string_view key) override;
    std::vector<std::string> keys(const DefaultsDomain&) const override;
    void synchronize(const DefaultsDomain&) override;

  private:
    struct Change {
        DefaultsDomain domain;
        std::string key;
        std::optional<DefaultsValue> before;
        Seconds time{0};
    };

    void note(const DefaultsDomain&, std::string_view key);
    void loseWhatIsPending();
    void undo(const Change&);

    ProgramSide side_;
    std::vector<Change> pending_; // in the order in which they were made
    Subscription end_;
};

} // namespace mac_model
