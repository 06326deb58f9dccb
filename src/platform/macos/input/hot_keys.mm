#include "platform/macos/input/hot_keys.h"

#include "platform/macos/support/apple.h"
#include "platform/macos/support/cf_reference.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/system/scheduler.h"

#include <utility>

namespace tavrin::macos {

namespace {

static_assert(carbonCommandKey == cmdKey && carbonShiftKey == shiftKey && carbonOptionKey == optionKey &&
              carbonControlKey == controlKey);

constexpr OptionBits noOptions = 0;

class RegisteredHotKey final : public HotKeyReference {
  public:
    explicit RegisteredHotKey(EventHotKeyRef hotKey) : hotKey_(hotKey) {}

    RegisteredHotKey(const RegisteredHotKey&) = delete;
    RegisteredHotKey& operator=(const RegisteredHotKey&) = delete;

    ~RegisteredHotKey() override {
        assertMainThread();
        UnregisterEventHotKey(hotKey_);
    }

  private:
    EventHotKeyRef hotKey_;
};

class InstalledHandler final : public HotKeyEventHandler {
  public:
    using Handler = std::function<HotKeys::Handling(const HotKeyIdentifier&)>;

    InstalledHandler(const Scheduler& scheduler, Handler handler)
        : scheduler_(scheduler)
        , handler_(std::move(handler)) {
        const EventTypeSpec presses{kEventClassKeyboard, kEventHotKeyPressed};
        InstallEventHandler(GetApplicationEventTarget(), &InstalledHandler::pressed, 1, &presses, this,
                            &installed_);
    }

    InstalledHandler(const InstalledHandler&) = delete;
    InstalledHandler& operator=(const InstalledHandler&) = delete;

    ~InstalledHandler() override {
        assertMainThread();
        if (installed_) RemoveEventHandler(installed_);
    }

    bool isInstalled() const { return installed_ != nullptr; }

  private:
    static OSStatus pressed(EventHandlerCallRef, EventRef event, void* userData) {
        EventHotKeyID identifier{};
        const auto status = GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr,
                                              sizeof identifier, nullptr, &identifier);
        if (status != noErr) return eventNotHandledErr;
        return static_cast<InstalledHandler*>(userData)->handle({identifier.signature, identifier.id});
    }

    OSStatus handle(const HotKeyIdentifier& identifier) {
        auto handling = HotKeys::Handling::NotHandled;
        runReportingAllFaults(scheduler_, [&] { handling = handler_(identifier); });
        return handling == HotKeys::Handling::Handled ? OSStatus{noErr} : OSStatus{eventNotHandledErr};
    }

    const Scheduler& scheduler_;
    Handler handler_;
    EventHandlerRef installed_ = nullptr;
};

NSNumber* numberIn(NSDictionary* entry, CFStringRef key) {
    const id value = [entry objectForKey:(__bridge NSString*)key];
    return [value isKindOfClass:NSNumber.class] ? value : nil;
}

std::optional<std::int64_t> integerIn(NSDictionary* entry, CFStringRef key) {
    NSNumber* number = numberIn(entry, key);
    return number ? std::optional<std::int64_t>(number.longLongValue) : std::nullopt;
}

SymbolicHotKey symbolicHotKeyFrom(NSDictionary* entry) {
    SymbolicHotKey hotKey;
    if (NSNumber* enabled = numberIn(entry, kHISymbolicHotKeyEnabled)) hotKey.isEnabled = enabled.boolValue;
    hotKey.code = integerIn(entry, kHISymbolicHotKeyCode);
    hotKey.modifiers = integerIn(entry, kHISymbolicHotKeyModifiers);
    return hotKey;
}

} // namespace

std::expected<std::unique_ptr<HotKeyReference>, HotKeys::Error>
MacHotKeys::registerHotKey(KeyCode key, CarbonModifiers modifiers, HotKeyIdentifier identifier) {
    assertMainThread();
    EventHotKeyRef hotKey = nullptr;
    const auto status = RegisterEventHotKey(key, modifiers, {identifier.signature, identifier.identifier},
                                            GetApplicationEventTarget(), noOptions, &hotKey);
    if (status != noErr) return std::unexpected(Error{status});
    return std::make_unique<RegisteredHotKey>(hotKey);
}

std::unique_ptr<HotKeyEventHandler>
MacHotKeys::installPressHandler(std::function<Handling(const HotKeyIdentifier&)> handler) {
    assertMainThread();
    auto installed = std::make_unique<InstalledHandler>(scheduler_, std::move(handler));
    if (!installed->isInstalled()) return nullptr;
    return installed;
}

std::vector<SymbolicHotKey> MacHotKeys::symbolicHotKeys() const {
    assertMainThread();
    CfReference<CFArrayRef> entries;
    if (CopySymbolicHotKeys(entries.out()) != noErr) return {};
    std::vector<SymbolicHotKey> hotKeys;
    for (id entry in (__bridge NSArray*)entries.get())
        if ([entry isKindOfClass:NSDictionary.class]) hotKeys.push_back(symbolicHotKeyFrom(entry));
    return hotKeys;
}

} // namespace tavrin::macos
