#include "privacy/login_items.h"

#include <utility>

namespace mac_model {

using tavrin::LoginItemState;

namespace {

const DefaultsDomain loginItemsDomain{"com.apple.backgroundtaskmanagement"};

} // namespace

LoginItems::LoginItems(PreferencesStore& preferences, std::string bundleIdentifier,
                       LoginItemAnswer answerAtFirst)
    : answer(answerAtFirst)
    , preferences_(preferences)
    , bundleIdentifier_(std::move(bundleIdentifier)) {}

std::optional<bool> LoginItems::registered() const {
    return preferences_.boolean(loginItemsDomain, bundleIdentifier_);
}

LoginItemState LoginItems::state() const {
    if (answer == LoginItemAnswer::NotFound) return LoginItemState::NotFound;
    if (!registered() && answer != LoginItemAnswer::Refuses) return LoginItemState::NotFound;
    if (!registered().value_or(false)) return LoginItemState::NotRegistered;
    return answer == LoginItemAnswer::RequiresApproval ? LoginItemState::RequiresApproval
                                                       : LoginItemState::Enabled;
}

std::expected<void, std::string> LoginItems::setRegistered(bool isRegistered) {
    if (answer == LoginItemAnswer::NotFound)
        return std::unexpected("The operation couldn’t be completed. Invalid argument");
    if (answer == LoginItemAnswer::Refuses)
        return std::unexpected("The operation couldn’t be completed. Operation not permitted");
    preferences_.set(loginItemsDomain, bundleIdentifier_, {isRegistered});
    if (isRegistered && answer == LoginItemAnswer::RequiresApproval)
        return std::unexpected("The operation couldn’t be completed. Launch denied by user");
    return {};
}

} // namespace mac_model
