#pragma once

#include "concurrency/scheduler.h"
#include "platform/macos/presentation/status_button_decorations.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/callback_gate.h"
#include "platform/status_items.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

@class TavrinStatusButtonTarget;

namespace tavrin::macos {

class MacStatusItem final : public StatusItem {
  public:
    MacStatusItem(Scheduler& scheduler, double length);
    ~MacStatusItem() override;
    MacStatusItem(const MacStatusItem&) = delete;
    MacStatusItem& operator=(const MacStatusItem&) = delete;

    /// Popovers and menus are anchored to it. Nil when the system gave the item no button.
    NSStatusBarButton* button() const { return item_.button; }

    void setLength(double length) override;
    double length() const override;
    void setAutosaveName(std::string name) override;
    void setVisible(bool visible) override;
    void setImage(TemplateImage image) override;
    void setToolTip(std::string text) override;
    void setAccessibilityLabel(std::string label) override;
    void setAccessibilityValue(std::string value) override;
    void setAccessibilityActions(std::vector<ViewAction> actions) override;
    void setHiddenFromAccessibility(bool hidden) override;
    void setAlpha(double alpha) override;
    void setDecorations(bool pillShown, double glow) override;
    void setAction(std::function<void(StatusItemPress)> action) override;
    std::optional<Rect> frame() const override;
    bool isDrawn() const override;

  private:
    CallbackGate gate_;
    NSStatusItem* item_;
    TavrinStatusButtonTarget* target_; // the button doesn't hold its target
    MenuBarControlDecorations decorations_;
};

/// The button of one of this process's items; nil for an item of another kind of Mac.
NSStatusBarButton* buttonOf(StatusItem& item);

/// `area`, on the screen, in the button's coordinates. The button must have a window.
NSRect rectInButton(NSStatusBarButton* button, Rect area);

/// The way back.
Rect rectOnScreen(NSStatusBarButton* button, NSRect area);

class MacStatusItems final : public StatusItems {
  public:
    explicit MacStatusItems(Scheduler& scheduler) : scheduler_(scheduler) {}

    std::unique_ptr<StatusItem> create(double length) override;
    Subscription onDrawnChanged(std::function<void()> handler) override;

  private:
    Scheduler& scheduler_;
};

} // namespace tavrin::macos
