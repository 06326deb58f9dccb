#include "seam/system/program_keys.h"

#include <ranges>

namespace mac_model {

namespace {

class RegisteredHotKey final : public HotKeyReference {
  public:
    RegisteredHotKey(HotKeyCenter& hotKeys, HotKeyCenter::Registration registration)
        : hotKeys_(hotKeys)
        , registration_(registration) {}

    RegisteredHotKey(const RegisteredHotKey&) = delete;
    RegisteredHotKey& operator=(const RegisteredHotKey&) = delete;

    ~RegisteredHotKey() override { hotKeys_.remove(registration_); }

  private:
    HotKeyCenter& hotKeys_;
    HotKeyCenter::Registration registration_;
};

} // namespace

std::string ProgramKeyboard::character(KeyCode key) const {
    return characterOn(side_.mac.keyboard.layout, key);
}

Subscription ProgramKeyboard::monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) {
    return side_.mac.keyboard.monitors.subscribe(
        [connection = side_.connection, handler = std::move(handler)](const KeyPress& press,
                                                                      KeyHandling* handling) {
            if (connection->isOpen()) *handling = handler(press);
        });
}

void ProgramKeyboard::beep() {
    if (side_.isOpen()) side_.mac.keyboard.onBeep.emit();
}

class ProgramHotKeys::InstalledHandler final : public HotKeyEventHandler {
  public:
    InstalledHandler(std::shared_ptr<Handlers> all, std::shared_ptr<Handler> handler)
        : all_(std::move(all))
        , handler_(std::move(handler)) {
        all_->push_back(handler_);
    }

    InstalledHandler(const InstalledHandler&) = delete;
    InstalledHandler& operator=(const InstalledHandler&) = delete;

    ~InstalledHandler() override {
        *handler_ = nullptr;
        std::erase(*all_, handler_);
    }

  private:
    std::shared_ptr<Handlers> all_;
    std::shared_ptr<Handler> handler_;
};

std::unique_ptr<HotKeyEventHandler> ProgramHotKeys::installPressHandler(Handler handler) {
    return std::make_unique<InstalledHandler>(handlers_, std::make_shared<Handler>(std::move(handler)));
}

void ProgramHotKeys::deliver(const Handlers& handlers, const HotKeyIdentifier& identifier) {
    for (const auto& handler : handlers | std::views::reverse)
        if (*handler && (*handler)(identifier) == Handling::Handled) return;
}

std::expected<std::unique_ptr<HotKeyReference>, tavrin::HotKeys::Error>
ProgramHotKeys::registerHotKey(KeyCode key, tavrin::CarbonModifiers modifiers, HotKeyIdentifier identifier) {
    constexpr Error internalError = -9868;
    if (!side_.isOpen()) return std::unexpected(internalError);
    const auto added = side_.mac.hotKeys.add(
        key, modifiers, [connection = side_.connection, handlers = std::weak_ptr(handlers_), identifier] {
            connection->post([handlers, identifier] {
                if (const auto installed = handlers.lock()) deliver(Handlers(*installed), identifier);
            });
        });
    if (!added) return std::unexpected(added.error());
    return std::make_unique<RegisteredHotKey>(side_.mac.hotKeys, *added);
}

std::vector<SymbolicHotKey> ProgramHotKeys::symbolicHotKeys() const {
    return side_.mac.hotKeys.symbolicHotKeys;
}

} // namespace mac_model
