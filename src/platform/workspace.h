#pragma once

#include "concurrency/signal.h"
#include "platform/accessibility.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavrin {

struct RunningApplication {
    std::optional<std::string> bundleIdentifier;
    ProcessIdentifier processIdentifier = -1;
    std::string localizedName;
    bool isRegular = false; // has a Dock icon, and while it is active the menu bar's titles

    bool operator==(const RunningApplication&) const = default;
};

struct OperatingSystemVersion {
    int major = 0;
    int minor = 0;

    bool operator==(const OperatingSystemVersion&) const = default;
};

/// Applications, versions and links. Main thread, except `bundleIdentifierAt`: any thread.
class Workspace {
  public:
    virtual ~Workspace() = default;

    virtual OperatingSystemVersion operatingSystemVersion() const = 0;

    /// Whether the user asks for less motion on the screen. It may change at any time.
    virtual bool isMotionReduced() const = 0;

    /// All processes with a connection to the window server, this one included. Those that stay
    /// keep their order.
    virtual std::vector<RunningApplication> runningApplications() const = 0;
    virtual Subscription onApplicationsChanged(std::function<void()> handler) = 0;

    /// The identifier of the bundle at a file path; none when there is no bundle.
    virtual std::optional<std::string> bundleIdentifierAt(std::string_view path) const = 0;

    /// The application's icon as a PNG of 32 × 32 pixels for 16 × 16 points; none when there is no such
    /// process or no icon of it.
    virtual std::optional<std::vector<std::byte>> iconPngOfProcess(ProcessIdentifier process) const = 0;

    /// The same for the application that is installed under the bundle identifier, running or not.
    virtual std::optional<std::vector<std::byte>>
    iconPngOfBundle(std::string_view bundleIdentifier) const = 0;

    /// The application whose menus are in the menu bar; none while none has any. An application without an
    /// icon in the Dock, as Tavrin is, leaves the menus of the one before in place when it becomes active.
    virtual std::optional<ProcessIdentifier> menuBarOwner() const = 0;

    /// Asks the system to make the application the active one, which takes a moment; false when it has ended.
    virtual bool activate(ProcessIdentifier process) = 0;

    /// Opens the link in the application that handles it; false when none does.
    virtual bool openUrl(std::string_view url) = 0;
};

} // namespace tavrin
