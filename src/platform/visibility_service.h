#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace tavrin {

/// A list of what the menu bar may show, handed to macOS. Destroying it invalidates it.
class VisibilityAssertion {
  public:
    /// Given the system's error in its own words, or none when the list is in force. Any thread.
    using Answer = std::function<void(std::optional<std::string> error)>;

    VisibilityAssertion() = default;
    VisibilityAssertion(const VisibilityAssertion&) = delete;
    VisibilityAssertion& operator=(const VisibilityAssertion&) = delete;
    virtual ~VisibilityAssertion() = default;

    /// Asks macOS to show only what is on the list. The answer comes once, on any thread and maybe within
    /// this call; it may take as long as it likes, come after `invalidate`, or never come. At most once.
    virtual void activate(Answer answer) = 0;

    /// Ends what the list hides, whether or not it has come into force. Later calls do nothing.
    virtual void invalidate() = 0;
};

/// The service by which macOS 27 and later hide items of the menu bar: those that aren't on a list. The
/// interface is private. Main thread.
class VisibilityService {
  public:
    virtual ~VisibilityService() = default;

    /// Whether this macOS has the interface; the answer stays the same for the life of the process.
    virtual bool isAvailable() = 0;

    /// Makes a list that does nothing yet: the numbers of the system's items and the bundle identifiers of
    /// the applications whose items may show, in this order. Null when that can't be had.
    virtual std::unique_ptr<VisibilityAssertion> make(std::span<const int> systemItems,
                                                      std::span<const std::string> bundleIdentifiers) = 0;
};

} // namespace tavrin
