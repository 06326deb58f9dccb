#include "core/menu_bar_manager.h"

#include "concurrency/waits.h"
#include "discovery/item_identifier.h"
#include "platform/application.h"
#include "platform/workspace.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavrin {

namespace {

/// The status items need this long after their creation to find their places.
constexpr Seconds startUpWait{0.5};

/// Why a pin keeps the toggle shortcut from being this.
std::optional<std::string> conflictWithPins(const std::vector<PinnedAction>& pins,
                                            const HotKeyShortcut& shortcut) {
    const auto user =
        std::ranges::find(pins, std::optional(shortcut), [](const PinnedAction& pin) { return pin.hotKey; });
    if (user == pins.end()) return std::nullopt;
    return "Already used by the pin \"" + user->name + "\".";
}

} // namespace

MenuBarManager::MenuBarManager(const Platform& platform, AccessibilityPermission& permission,
                               AppUpdates& updates, Hooks hooks)
    : platform_(platform)
    , permission_(permission)
    , runtimeMode_(tavrin::runtimeMode(platform.workspace.operatingSystemVersion()))
    , settings_(platform.defaults)
    , firstRun_(settings_)
    , hotKeyRegistrars_(platform.hotKeys)
    , toggleShortcut_(ToggleShortcutStore(platform.defaults), hotKeyRegistrars_.make(),
                      [this] { toggleCollapse(); })
    , statusItems_(platform, settings_, runtimeMode_,
                   [this](StatusItem& control) { control_.dress(control); })
    , geometry_(platform, state_, statusItems_)
    , inventory_(platform, state_, permission, statusItems_)
    , readingQueue_(platform.scheduler.makeSerialQueue("tavrin.item"))
    , itemReader_(platform.accessibility,
                  AccessibilityMenuBarScanner(platform.scheduler, platform.accessibility, platform.defaults,
                                              platform.workspace, platform.text),
                  *readingQueue_)
    , windowBridge_(platform.events, platform.windowServer)
    , mover_(platform.events, platform.accessibility, itemReader_, windowBridge_)
    , hiding_(platform, state_, settings_, runtimeMode_, statusItems_, geometry_, inventory_,
              {.showFailure = [this] { presentConfiguration(ConfigurePresentation::ErrorMessage::Keep); },
               .cancelPendingConfiguration = [this] { cancelPendingConfiguration(); }})
    , applier_(platform, state_, runtimeMode_, permission, statusItems_, geometry_, inventory_, hiding_,
               itemReader_, mover_, nullptr)
    , configure_(
          platform, state_, settings_, statusItems_, hiding_, [this] { cancelPendingConfiguration(); },
          [this, view = std::move(hooks.configureView)] { return view(*this); })
    , hint_(platform, settings_, statusItems_, [this] { showConfiguration(); })
    , pinnedActions_(platform, permission,
                     {.isHidingItems = [this] { return state_.isCollapsed.get(); },
                      .noticeAnchor = [this] { return statusItems_.controlGlyphFrame(); },
                      .editPin = [this](const Uuid&) { showConfiguration(); }})
    , control_(platform, state_, statusItems_, hint_, updates,
               {.toggleCollapse = [this] { toggleCollapse(); },
                .showConfiguration = [this] { showConfiguration(); },
                .cancelConfigurationRestore = [this] { configure_.cancelPendingRestore(); },
                .refreshItems = [this] { refreshItems(); },
                .showSettings = std::move(hooks.showSettings),
                .appendPinnedActions = [this](Menu& menu) { pinnedActions_.appendMenuSection(menu); }}) {
    toggleShortcut_.conflict = [this](const HotKeyShortcut& shortcut) {
        return conflictWithPins(pinnedActions_.store().pins(), shortcut);
    };
    loadHiddenItems();
    statusItems_.configureStatusItems(OwnStatusItems::PositionSeed::IfAbsent);
    observeDisplayChanges();
    observeAccessibilityPermission();
    startUpTask_ = start(platform_.scheduler, startUp());
}

MenuBarManager::~MenuBarManager() = default;

void MenuBarManager::presentConfiguration(ConfigurePresentation::ErrorMessage errorMessage) {
    hint_.dismiss();
    configure_.showConfiguration(errorMessage);
}

void MenuBarManager::loadHiddenItems() {
    state_.hiddenItemIdentifiers.set(settings_.strings(Settings::hiddenItemIdentifiersKey));
    settings_.remove(Settings::legacyRescuedItemIdentifiersKey);
}

void MenuBarManager::observeDisplayChanges() {
    screenObserver_ = platform_.screens.onChanged([this] {
        hiding_.adaptToScreens();
        if (state_.hasCompletedScan) refreshItems();
    });
}

void MenuBarManager::observeAccessibilityPermission() {
    accessibilityObservation_ = permission_.onChanged([this](const bool& isTrusted) {
        if (isTrusted) {
            refreshItems();
        } else {
            inventory_.invalidate();
        }
    });
}

Task<> MenuBarManager::startUp() {
    if (co_await sleepFor(startUpWait) == Wake::CutShort) co_return;
    if (runtimeMode_ == MenuBarRuntimeMode::divider) co_await geometry_.ensureExpandedStatusItemGeometry();
    co_await inventory_.refreshItemsNow();
    if (co_await isCancelled()) co_return;
    co_await showInitialState();
}

Task<> MenuBarManager::showInitialState() {
    if (firstRun_.isFreshInstall()) {
        isAwaitingFirstRunDefault_ = true;
        co_await applyFirstRunDefaultIfReady();
    } else if (!settings_.boolean(Settings::didPresentInitialConfigurationKey)) {
        showConfiguration();
    } else if (settings_.boolean(Settings::shouldStartCollapsedKey)) {
        if (hiding_.collapse(Persist::No)) hint_.showIfPending();
    }
}

Task<> MenuBarManager::applyFirstRunDefaultIfReady() {
    if (!isAwaitingFirstRunDefault_ || !state_.hasCompletedScan) co_return;
    isAwaitingFirstRunDefault_ = false;
    for (const auto& item :
         FirstRunState::itemsToHide(state_.detectedItems.get(), platform_.application.bundleIdentifier())) {
        setItem(item, true);
    }
    firstRun_.recordDefaultLayout(state_.hiddenItemIdentifiers.get());
    const auto outcome = co_await applier_.applyConfiguration();
    if (outcome == ApplyOutcome::hidden) {
        hint_.oweToUser();
        hint_.showIfPending();
    } else if (outcome == ApplyOutcome::incomplete) {
        presentConfiguration(ConfigurePresentation::ErrorMessage::Keep);
    }
}

void MenuBarManager::refreshItems() { refreshTask_ = start(platform_.scheduler, refreshAndFinishFirstRun()); }

Task<> MenuBarManager::refreshAndFinishFirstRun() {
    co_await inventory_.refreshItemsNow();
    if (!co_await isCancelled()) co_await applyFirstRunDefaultIfReady();
}

void MenuBarManager::openAccessibilitySettings() {
    platform_.workspace.openUrl(AccessibilityPermission::settingsURL);
}

Task<> MenuBarManager::prepareForTermination() {
    startUpTask_.cancel();
    refreshTask_.cancel();
    cancelPendingConfiguration();
    pinnedActions_.cancel();
    configure_.close();
    hiding_.restoreForTermination();
    co_return;
}

std::vector<MenuBarItem> MenuBarManager::visibleItems() const { return itemsConfigured(false); }

std::vector<MenuBarItem> MenuBarManager::hiddenItems() const { return itemsConfigured(true); }

std::vector<MenuBarItem> MenuBarManager::itemsConfigured(bool hidden) const {
    std::vector<MenuBarItem> items;
    std::ranges::copy_if(state_.detectedItems.get(), std::back_inserter(items),
                         [&](const auto& item) { return isConfiguredHidden(item) == hidden; });
    return items;
}

bool MenuBarManager::isConfiguredHidden(const MenuBarItem& item) const {
    return tavrin::isConfiguredHidden(item.snapshot, state_.hiddenItemIdentifiers.get());
}

void MenuBarManager::setItem(const MenuBarItem& item, bool hidden) { setItems({item.snapshot.id}, hidden); }

void MenuBarManager::setItems(const std::vector<std::string>& identifiers, bool hidden) {
    auto chosen = state_.hiddenItemIdentifiers.get();
    for (const auto& identifier : identifiers) {
        const auto key = comparableItemIdentifier(identifier);
        std::erase_if(chosen, [&](const auto& stored) { return comparableItemIdentifier(stored) == key; });
        if (hidden) chosen.insert(identifier);
    }
    state_.hiddenItemIdentifiers.set(chosen);
    settings_.setStrings(Settings::hiddenItemIdentifiersKey, chosen);
}

} // namespace tavrin
