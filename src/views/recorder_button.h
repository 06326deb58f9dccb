#pragma once

#include "concurrency/signal.h"

#include <functional>
#include <memory>
#include <string>

namespace tavrin {

enum class RecorderLook { Resting, Recording };

/// A recorder's push button as a renderer has made it, with its window. It accepts being first responder.
class RecorderButtonHost {
  public:
    virtual ~RecorderButtonHost() = default;

    virtual void show(std::string title, RecorderLook look) = 0;

    virtual bool isInWindow() const = 0;
    /// False when the window keeps another first responder.
    virtual bool makeFirstResponder() = 0;
    virtual bool isFirstResponder() const = 0;

    /// Fires when the button's window is no longer the key window.
    virtual Subscription onWindowResignedKey(std::function<void()> handler) = 0;
};

/// Hears of everything that happens to the button and decides everything that it does. A renderer makes one
/// for each button and keeps it for as long as the button stands.
class RecorderButton {
  public:
    virtual ~RecorderButton() = default;

    virtual void clicked() = 0;
    virtual void resignedFirstResponder() = 0;
    /// The button is moving to another window, or out of its window.
    virtual void movesFromWindow() = 0;
};

/// Makes the recorder for a place in a view tree.
struct RecorderButtonMaker {
    /// The host outlives what is made.
    std::function<std::unique_ptr<RecorderButton>(RecorderButtonHost&)> make;
    /// Brings a button that was made for an earlier tree in step with this one. Renderers call it for new
    /// buttons, too.
    std::function<void(RecorderButton&)> update;
};

} // namespace tavrin
