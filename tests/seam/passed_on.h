#pragma once

#include "platform/accessibility.h"
#include "platform/application.h"
#include "platform/defaults.h"
#include "platform/event_monitors.h"
#include "platform/events.h"
#include "platform/hot_keys.h"
#include "platform/keyboard.h"
#include "platform/login_item.h"
#include "platform/platform.h"
#include "platform/presentation.h"
#include "platform/screens.h"
#include "platform/status_items.h"
#include "platform/text.h"
#include "platform/visibility_service.h"
#include "platform/window_server.h"
#include "platform/workspace.h"

#include <memory>
#include <type_traits>
#include <utility>

// Families that pass everything on to a true one: what is derived from them overrides what it falsifies.

namespace tavrin {

class PassedOnApplication : public Application {
  public:
    explicit PassedOnApplication(Application& real) : truth(real) {}

    ProcessIdentifier processIdentifier() const override { return truth.processIdentifier(); }

    std::string bundleIdentifier() const override { return truth.bundleIdentifier(); }

    std::string displayVersion() const override { return truth.displayVersion(); }

    void setActivationPolicy(ActivationPolicy policy) override { truth.setActivationPolicy(policy); }

    void activate() override { truth.activate(); }

    void activateIgnoringOthers() override { truth.activateIgnoringOthers(); }

    bool isActive() const override { return truth.isActive(); }

    Subscription onDidBecomeActive(std::function<void()> handler) override {
        return truth.onDidBecomeActive(std::move(handler));
    }

    bool takesKeys() const override { return truth.takesKeys(); }

    Subscription onKeysReleased(std::function<void()> handler) override {
        return truth.onKeysReleased(std::move(handler));
    }

    void showAboutPanel() override { truth.showAboutPanel(); }

    void announce(std::string sentence) override { truth.announce(std::move(sentence)); }

    void terminate() override { truth.terminate(); }

    void replyToShouldTerminate(bool terminates) override { truth.replyToShouldTerminate(terminates); }

    Application& truth;
};

class PassedOnPresentation : public Presentation {
  public:
    explicit PassedOnPresentation(Presentation& real) : truth(real) {}

    std::unique_ptr<Popover> makePopover(PopoverBehavior behavior, std::function<void()> onClose) override {
        return truth.makePopover(behavior, std::move(onClose));
    }

    std::unique_ptr<Window> makeWindow(std::string title, std::function<void()> onClose) override {
        return truth.makeWindow(std::move(title), std::move(onClose));
    }

    std::unique_ptr<Panel> makePanel() override { return truth.makePanel(); }

    std::unique_ptr<Alert> showAlert(AlertQuestion question,
                                     std::function<void(std::size_t)> onAnswer) override {
        return truth.showAlert(std::move(question), std::move(onAnswer));
    }

    void popUp(Menu menu, StatusItem& item, Rect area) override { truth.popUp(std::move(menu), item, area); }

    Presentation& truth;
};

class PassedOnDefaults : public Defaults {
  public:
    explicit PassedOnDefaults(Defaults& real) : truth(real) {}

    DefaultsDomain ownDomain() const override { return truth.ownDomain(); }

    std::optional<DefaultsValue> value(const DefaultsDomain& domain, std::string_view key) const override {
        return truth.value(domain, key);
    }

    void set(const DefaultsDomain& domain, std::string_view key, DefaultsValue value) override {
        truth.set(domain, key, std::move(value));
    }

    void remove(const DefaultsDomain& domain, std::string_view key) override { truth.remove(domain, key); }

    std::vector<std::string> keys(const DefaultsDomain& domain) const override { return truth.keys(domain); }

    void synchronize(const DefaultsDomain& domain) override { truth.synchronize(domain); }

    Defaults& truth;
};

class PassedOnAccessibility : public Accessibility {
  public:
    explicit PassedOnAccessibility(Accessibility& real) : truth(real) {}

    bool isTrusted() const override { return truth.isTrusted(); }

    void requestTrust() override { truth.requestTrust(); }

    Subscription onTrustListChanged(std::function<void()> handler) override {
        return truth.onTrustListChanged(std::move(handler));
    }

    AccessibilityElement application(ProcessIdentifier process) override {
        return truth.application(process);
    }

    std::optional<ProcessIdentifier> processOf(const AccessibilityElement& element) const override {
        return truth.processOf(element);
    }

    void setMessagingTimeout(const AccessibilityElement& element, Seconds timeout) override {
        truth.setMessagingTimeout(element, timeout);
    }

    AttributeResult attribute(const AccessibilityElement& element, std::string_view name) override {
        return truth.attribute(element, name);
    }

    std::expected<std::vector<AttributeResult>, AccessibilityError>
    attributes(const AccessibilityElement& element, std::span<const std::string_view> names) override {
        return truth.attributes(element, names);
    }

    std::expected<std::vector<std::string>, AccessibilityError>
    actionNames(const AccessibilityElement& element) override {
        return truth.actionNames(element);
    }

    std::expected<void, AccessibilityError> perform(const AccessibilityElement& element,
                                                    std::string_view action) override {
        return truth.perform(element, action);
    }

    std::expected<void, AccessibilityError> setFlag(const AccessibilityElement& element,
                                                    std::string_view attribute, bool value) override {
        return truth.setFlag(element, attribute, value);
    }

    Accessibility& truth;
};

class PassedOnWorkspace : public Workspace {
  public:
    explicit PassedOnWorkspace(Workspace& real) : truth(real) {}

    OperatingSystemVersion operatingSystemVersion() const override { return truth.operatingSystemVersion(); }

    bool isMotionReduced() const override { return truth.isMotionReduced(); }

    std::vector<RunningApplication> runningApplications() const override {
        return truth.runningApplications();
    }

    Subscription onApplicationsChanged(std::function<void()> handler) override {
        return truth.onApplicationsChanged(std::move(handler));
    }

    std::optional<std::string> bundleIdentifierAt(std::string_view path) const override {
        return truth.bundleIdentifierAt(path);
    }

    std::optional<std::vector<std::byte>> iconPngOfProcess(ProcessIdentifier process) const override {
        return truth.iconPngOfProcess(process);
    }

    std::optional<std::vector<std::byte>> iconPngOfBundle(std::string_view bundle) const override {
        return truth.iconPngOfBundle(bundle);
    }

    std::optional<ProcessIdentifier> menuBarOwner() const override { return truth.menuBarOwner(); }

    bool activate(ProcessIdentifier process) override { return truth.activate(process); }

    bool openUrl(std::string_view url) override { return truth.openUrl(url); }

    Workspace& truth;
};

class PassedOnLoginItem : public LoginItem {
  public:
    explicit PassedOnLoginItem(LoginItem& real) : truth(real) {}

    LoginItemState state() const override { return truth.state(); }

    std::expected<void, std::string> registerApplication() override { return truth.registerApplication(); }

    std::expected<void, std::string> unregisterApplication() override {
        return truth.unregisterApplication();
    }

    void openSettings() override { truth.openSettings(); }

    LoginItem& truth;
};

class PassedOnText : public Text {
  public:
    explicit PassedOnText(Text& real) : truth(real) {}

    std::strong_ordering compareIgnoringCase(std::string_view left, std::string_view right) const override {
        return truth.compareIgnoringCase(left, right);
    }

    std::string foldingCaseAndDiacritics(std::string_view text) const override {
        return truth.foldingCaseAndDiacritics(text);
    }

    std::string foldingCaseDiacriticsAndWidth(std::string_view text) const override {
        return truth.foldingCaseDiacriticsAndWidth(text);
    }

    std::string lowercased(std::string_view text) const override { return truth.lowercased(text); }

    std::string capitalized(std::string_view text) const override { return truth.capitalized(text); }

    std::string keepingAlphanumerics(std::string_view text) const override {
        return truth.keepingAlphanumerics(text);
    }

    std::string trimmed(std::string_view text) const override { return truth.trimmed(text); }

    Text& truth;
};

class PassedOnScheduler : public Scheduler {
  public:
    explicit PassedOnScheduler(Scheduler& real) : truth(real) {}

    Seconds now() const override { return truth.now(); }

    bool isMainThread() const override { return truth.isMainThread(); }

    void post(Work work) override { truth.post(std::move(work)); }

    TimerIdentifier callAfter(Seconds delay, Work work) override {
        return truth.callAfter(delay, std::move(work));
    }

    TimerIdentifier callEvery(Seconds interval, Work work) override {
        return truth.callEvery(interval, std::move(work));
    }

    void cancelTimer(TimerIdentifier timer) override { truth.cancelTimer(timer); }

    std::unique_ptr<SerialQueue> makeSerialQueue(std::string label) override {
        return truth.makeSerialQueue(std::move(label));
    }

    void concurrentPerform(std::size_t count, const std::function<void(std::size_t)>& body) override {
        truth.concurrentPerform(count, body);
    }

    Scheduler& truth;
};

class PassedOnEvents : public Events {
  public:
    explicit PassedOnEvents(Events& real) : truth(real) {}

    std::shared_ptr<const EventSource> createSource(const EventSourceSettings& settings) override {
        return truth.createSource(settings);
    }

    std::unique_ptr<PreparedEvent> create(const MouseEvent& event) override { return truth.create(event); }

    void post(const PreparedEvent& event, EventTap tap) override { truth.post(event, tap); }

    void postToProcess(const PreparedEvent& event, ProcessIdentifier process) override {
        truth.postToProcess(event, process);
    }

    bool postKeyToProcess(const KeyEvent& event, ProcessIdentifier process) override {
        return truth.postKeyToProcess(event, process);
    }

    bool mayPost() const override { return truth.mayPost(); }

    void warpPointer(Point location) override { truth.warpPointer(location); }

    std::optional<Point> pointerLocation() const override { return truth.pointerLocation(); }

    std::uint32_t eventCount(MouseEventType type) const override { return truth.eventCount(type); }

    void hideCursor() override { truth.hideCursor(); }

    void showCursor() override { truth.showCursor(); }

    Events& truth;
};

class PassedOnStatusItem : public StatusItem {
  public:
    explicit PassedOnStatusItem(std::unique_ptr<StatusItem> real) : truth(std::move(real)) {}

    void setLength(double length) override { truth->setLength(length); }

    double length() const override { return truth->length(); }

    void setAutosaveName(std::string name) override { truth->setAutosaveName(std::move(name)); }

    void setVisible(bool visible) override { truth->setVisible(visible); }

    void setImage(TemplateImage image) override { truth->setImage(std::move(image)); }

    void setToolTip(std::string text) override { truth->setToolTip(std::move(text)); }

    void setAccessibilityLabel(std::string label) override { truth->setAccessibilityLabel(std::move(label)); }

    void setAccessibilityValue(std::string value) override { truth->setAccessibilityValue(std::move(value)); }

    void setAccessibilityActions(std::vector<ViewAction> actions) override {
        truth->setAccessibilityActions(std::move(actions));
    }

    void setHiddenFromAccessibility(bool hidden) override { truth->setHiddenFromAccessibility(hidden); }

    void setAlpha(double alpha) override { truth->setAlpha(alpha); }

    void setDecorations(bool pillShown, double glow) override { truth->setDecorations(pillShown, glow); }

    void setAction(std::function<void(StatusItemPress)> action) override {
        truth->setAction(std::move(action));
    }

    std::optional<Rect> frame() const override { return truth->frame(); }

    bool isDrawn() const override { return truth->isDrawn(); }

    std::unique_ptr<StatusItem> truth;
};

class PassedOnVisibilityAssertion : public VisibilityAssertion {
  public:
    explicit PassedOnVisibilityAssertion(std::unique_ptr<VisibilityAssertion> real)
        : truth(std::move(real)) {}

    void activate(Answer answer) override { truth->activate(std::move(answer)); }

    void invalidate() override { truth->invalidate(); }

    std::unique_ptr<VisibilityAssertion> truth;
};

/// Its lists are falsified by `Falsified`, which is derived from the one above.
template <class Falsified>
class PassedOnVisibilityService : public VisibilityService {
  public:
    explicit PassedOnVisibilityService(VisibilityService& real) : truth(real) {}

    bool isAvailable() override { return truth.isAvailable(); }

    std::unique_ptr<VisibilityAssertion> make(std::span<const int> systemItems,
                                              std::span<const std::string> bundleIdentifiers) override {
        auto made = truth.make(systemItems, bundleIdentifiers);
        return made ? std::make_unique<Falsified>(std::move(made)) : nullptr;
    }

    VisibilityService& truth;
};

class PassedOnEventMonitors : public EventMonitors {
  public:
    explicit PassedOnEventMonitors(EventMonitors& real) : truth(real) {}

    Subscription watch(EventMask events, std::function<void(const WatchedEvent&)> handler) override {
        return truth.watch(events, std::move(handler));
    }

    Point pointerLocation() const override { return truth.pointerLocation(); }

    EventMonitors& truth;
};

/// The platform with the families that the lie implements replaced.
template <class Lie>
Platform with(Lie& lie, const Platform& real) {
    const auto pick = [&lie]<class Family>(Family& truth) -> Family& {
        if constexpr (std::is_base_of_v<Family, Lie>)
            return lie;
        else
            return truth;
    };
    return {.scheduler = pick(real.scheduler),
            .application = pick(real.application),
            .accessibility = pick(real.accessibility),
            .defaults = pick(real.defaults),
            .eventMonitors = pick(real.eventMonitors),
            .events = pick(real.events),
            .hotKeys = pick(real.hotKeys),
            .keyboard = pick(real.keyboard),
            .loginItem = pick(real.loginItem),
            .presentation = pick(real.presentation),
            .randomness = real.randomness,
            .screens = pick(real.screens),
            .statusItems = pick(real.statusItems),
            .text = pick(real.text),
            .visibilityService = pick(real.visibilityService),
            .windowServer = pick(real.windowServer),
            .workspace = pick(real.workspace),
            .updater = real.updater};
}

} // namespace tavrin
