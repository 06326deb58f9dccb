#pragma once

#include "concurrency/signal.h"
#include "platform/accessibility.h"

#include <functional>
#include <string>

namespace tavrin {

enum class TerminateReply { Now, Later };

/// The system's requests to the program.
class ApplicationDelegate {
  public:
    virtual ~ApplicationDelegate() = default;
    virtual void applicationDidFinishLaunching() = 0;
    /// The user launched the running application again; true lets the system do its default as well.
    virtual bool applicationShouldHandleReopen(bool hasVisibleWindows) = 0;
    virtual bool applicationShouldTerminateAfterLastWindowClosed() = 0;

    /// The user chose "Settings…" in the application's own menu, which has Command-comma for a key. Nothing
    /// happens in a program without settings.
    virtual void applicationShowSettings() {}

    virtual TerminateReply applicationShouldTerminate() = 0;
};

/// Values of NSApplication.ActivationPolicy.
enum class ActivationPolicy { Regular = 0, Accessory = 1, Prohibited = 2 };

/// This process, as the system sees it.
class Application {
  public:
    virtual ~Application() = default;

    virtual ProcessIdentifier processIdentifier() const = 0;
    virtual std::string bundleIdentifier() const = 0;
    /// The version as shown to a person, such as "Version 1.2 (34)".
    virtual std::string displayVersion() const = 0;

    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
    /// Asks to become the active application, in the way that suits the version of macOS. Since macOS 14 that
    /// is a request, which may be declined without a word, or granted later.
    virtual void activate() = 0;
    /// Becomes the active application whatever the others do; it takes a moment.
    virtual void activateIgnoringOthers() = 0;
    virtual bool isActive() const = 0;
    virtual Subscription onDidBecomeActive(std::function<void()> handler) = 0;

    /// Whether a window of this process is key or should be, or a menu of it is open. Without either, the
    /// keys that the user presses while this process is active reach nobody.
    virtual bool takesKeys() const = 0;
    /// Fires when a window of this process has ceased to be key, and when a menu has closed.
    virtual Subscription onKeysReleased(std::function<void()> handler) = 0;

    virtual void showAboutPanel() = 0;

    /// Has assistive technology say a sentence, instead of what it is saying. Nobody hears it otherwise.
    virtual void announce(std::string sentence) = 0;

    /// Begins to quit: the delegate is asked, and may put the end off.
    virtual void terminate() = 0;
    /// Answers a termination that the delegate put off.
    virtual void replyToShouldTerminate(bool terminates) = 0;
};

} // namespace tavrin
