#include "seam/system/program_visibility_service.h"

namespace mac_model {

namespace {

class ProgramVisibilityAssertion final : public tavrin::VisibilityAssertion {
  public:
    ProgramVisibilityAssertion(ProgramSide side, VisibilityList list)
        : side_(std::move(side))
        , list_(std::move(list)) {}

    ProgramVisibilityAssertion(const ProgramVisibilityAssertion&) = delete;
    ProgramVisibilityAssertion& operator=(const ProgramVisibilityAssertion&) = delete;

    ~ProgramVisibilityAssertion() override { end(); }

    void activate(Answer answer) override {
        if (!side_.isOpen()) return;
        identifier_ = side_.mac.visibility.activate(
            side_.connection->process(), std::move(list_),
            [connection = side_.connection, answer = std::move(answer)](const auto& error) {
                if (connection->isOpen()) answer(error);
            });
    }

    void invalidate() override { end(); }

  private:
    void end() {
        const auto ended = std::exchange(identifier_, std::nullopt);
        if (ended && side_.isOpen()) side_.mac.visibility.invalidate(*ended);
    }

    ProgramSide side_;
    VisibilityList list_;
    std::optional<VisibilityLists::Identifier> identifier_;
};

} // namespace

bool ProgramVisibilityService::isAvailable() {
    if (!isAvailable_) isAvailable_ = side_.mac.visibility.answer != mac_model::VisibilityService::Absent;
    return *isAvailable_;
}

std::unique_ptr<tavrin::VisibilityAssertion>
ProgramVisibilityService::make(std::span<const int> systemItems,
                               std::span<const std::string> bundleIdentifiers) {
    if (!side_.isOpen() || !isAvailable()) return nullptr;
    return std::make_unique<ProgramVisibilityAssertion>(
        side_, VisibilityList{{systemItems.begin(), systemItems.end()},
                              {bundleIdentifiers.begin(), bundleIdentifiers.end()}});
}

} // namespace mac_model
