#include "platform/macos/views/view_recorder.h"

#include "concurrency/signal.h"
#include "platform/macos/support/conversions.h"

#include <functional>
#include <string>
#include <utility>

using tavrin::RecorderButton;
using tavrin::RecorderButtonHost;
using tavrin::RecorderButtonMaker;
using tavrin::RecorderLook;

namespace tavrin::macos {

namespace {

class RecorderHost final : public RecorderButtonHost {
  public:
    RecorderHost(NSButton* button, const RecorderButtonMaker& maker)
        : button_(button)
        , recorder_(maker.make(*this)) {}

    RecorderButton& recorder() { return *recorder_; }

    void windowResignedKey() { resignedKey_.emit(); }

    void show(std::string title, RecorderLook look) override {
        button_.title = localized(title);
        button_.bezelColor = look == RecorderLook::Recording ? NSColor.controlAccentColor : nil;
    }

    bool isInWindow() const override { return button_.window != nil; }

    bool makeFirstResponder() override {
        NSWindow* window = button_.window;
        [window makeKeyWindow]; // a panel isn't key after a press through Accessibility
        return window && [window makeFirstResponder:button_] && isFirstResponder();
    }

    bool isFirstResponder() const override {
        return button_.window && button_.window.firstResponder == button_;
    }

    Subscription onWindowResignedKey(std::function<void()> handler) override {
        return resignedKey_.subscribe(std::move(handler));
    }

  private:
    __weak NSButton* button_; // which owns this
    Signal<> resignedKey_;
    std::unique_ptr<RecorderButton> recorder_;
};

} // namespace

} // namespace tavrin::macos

using tavrin::macos::RecorderHost;

@implementation TavrinRecorderButton {
    std::shared_ptr<RecorderHost> host_;
}

- (void)followMaker:(const std::shared_ptr<const RecorderButtonMaker>&)maker {
    if (!maker) return;
    if (!host_) host_ = std::make_shared<RecorderHost>(self, *maker);
    maker->update(host_->recorder());
}

// The recorder's callbacks may take the button out of the tree, and its host has to last until they return.

- (void)recorderWasClicked {
    if (const auto host = host_) host->recorder().clicked();
}

- (void)letRecorderGo {
    host_.reset();
}

- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return YES;
}

- (BOOL)acceptsFirstResponder {
    return self.enabled;
}

// A press makes a panel the key window only for what asks for that, and without it no key would come.
- (BOOL)needsPanelToBecomeKey {
    return YES;
}

- (BOOL)resignFirstResponder {
    const BOOL resigns = [super resignFirstResponder];
    const auto host = host_;
    if (resigns && host) host->recorder().resignedFirstResponder();
    return resigns;
}

- (void)viewWillMoveToWindow:(NSWindow*)newWindow {
    [super viewWillMoveToWindow:newWindow];
    NSNotificationCenter* center = NSNotificationCenter.defaultCenter;
    NSWindow* old = self.window;
    if (old) [center removeObserver:self name:NSWindowDidResignKeyNotification object:old];
    if (newWindow) {
        [center addObserver:self
                   selector:@selector(windowResignedKey:)
                       name:NSWindowDidResignKeyNotification
                     object:newWindow];
    }
    const auto host = host_;
    if (host && old && newWindow != old) host->recorder().movesFromWindow();
}

- (void)windowResignedKey:(NSNotification*)notification {
    if (const auto host = host_) host->windowResignedKey();
}

@end
