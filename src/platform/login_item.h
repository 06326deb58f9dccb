#pragma once

#include <expected>
#include <string>

namespace tavrin {

enum class LoginItemState {
    NotRegistered,
    Enabled,
    RequiresApproval, // registered, and not started until the user allows it in System Settings
    NotFound,         // unknown to the system, which it also says of an application that was never registered
};

/// Starting this application when the user logs in. The system keeps that, and the user may change it in
/// System Settings at any time without a word to the program.
class LoginItem {
  public:
    virtual ~LoginItem() = default;

    virtual LoginItemState state() const = 0;

    // The error is the system's sentence. Success doesn't tell the state: ask for it.

    virtual std::expected<void, std::string> registerApplication() = 0;
    virtual std::expected<void, std::string> unregisterApplication() = 0;

    /// Opens the list of login items in System Settings.
    virtual void openSettings() = 0;
};

} // namespace tavrin
