#pragma once

#include "desktop/desktop_file.h"
#include "platform/login_item.h"
#include "preferences/preferences_store.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <optional>
#include <string>

namespace mac_model {

/// The system's service for applications that start at login, as far as the program is concerned. The
/// profile keeps what is registered; `answer` says how the service takes it.
class LoginItems {
  public:
    LoginItems(PreferencesStore&, std::string bundleIdentifier, LoginItemAnswer);

    /// An application that was never registered isn't found, unless the service refuses it; one that was
    /// taken back isn't registered.
    tavrin::LoginItemState state() const;

    std::expected<void, std::string> setRegistered(bool isRegistered);

    LoginItemAnswer answer;

  private:
    std::optional<bool> registered() const;

    PreferencesStore& preferences_;
    std::string bundleIdentifier_;
};

} // namespace mac_model
