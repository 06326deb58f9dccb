#pragma once

#include "accessibility/accessibility_element.h"
#include "accessibility/accessibility_tree.h"
#include "accessibility/menu_contents.h"
#include "accessibility/permission.h"
#include "concurrency/virtual_scheduler.h"
#include "desktop/desktop_file.h"
#include "menu_bar/status_area.h"
#include "platform/accessibility.h"
#include "system/process_table.h"
#include "system/screens_model.h"
#include "system/world_calls.h"

#include <cstdint>
#include <expected>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// What actions do to the screen. Each runs in the world once the message was answered.
struct AccessibilityActions {
    /// "AXPress", or another action that the item lists.
    std::function<void(StatusItemIdentifier, std::string_view action)> actOnItem;
    std::function<void(tavrin::ProcessIdentifier, std::size_t title)> pressTitle;
    /// A `StatusEntry` or `TitleEntry`: it runs, or opens its submenu.
    std::function<void(const ElementKey& entry)> pressEntry;
    /// Anything in or at an open menu: the menus of its title or status item close.
    std::function<void(const ElementKey&)> cancelMenu;
};

/// Answers Accessibility messages from one process about all others: what they hold, what they cost and how
/// they fail. Each message takes the receiver's latency, or the reference's time-out when the receiver hangs,
/// of the calling thread's virtual time. A process that asks about itself is answered like any other; that
/// this deadlocks on macOS while its main thread is blocked is not modelled.
class AccessibilityServer {
  public:
    static constexpr tavrin::Seconds timeoutAtFirst{6};

    /// `seed` other than 0 makes latencies vary between half and twice their value.
    AccessibilityServer(tavrin::VirtualScheduler&, const ProcessTable&, const StatusArea&,
                        const ScreensModel&, const Permission&, const Uncertainties&, const Faults&,
                        const std::optional<OpenMenu>&, std::uint64_t seed);

    using Error = tavrin::AccessibilityError;

    tavrin::AttributeResult attribute(tavrin::ProcessIdentifier caller, const tavrin::AccessibilityElement&,
                                      std::string_view name);
    std::expected<std::vector<tavrin::AttributeResult>, Error>
    attributes(tavrin::ProcessIdentifier caller, const tavrin::AccessibilityElement&,
               std::span<const std::string_view> names);
    std::expected<std::vector<std::string>, Error> actionNames(tavrin::ProcessIdentifier caller,
                                                               const tavrin::AccessibilityElement&);
    std::expected<void, Error> perform(tavrin::ProcessIdentifier caller, const tavrin::AccessibilityElement&,
                                       std::string_view action);

    /// Messages sent since the start, by the receiver's bundle identifier, or its name when it has none.
    const std::map<std::string, std::uint64_t>& messages() const { return messages_; }

    const MenuContents& menus() const { return menus_; }

    AccessibilityActions actions;

  private:
    std::expected<void, Error> send(tavrin::ProcessIdentifier caller, const ElementReference&);
    std::expected<void, Error> deliver(const ElementReference&);
    std::expected<void, Error> performOn(const ElementReference&, std::string_view action);
    void actAfter(tavrin::Seconds delay, const ElementKey&, std::string_view action);
    void act(const ElementKey&, const std::string& action) const;
    tavrin::Seconds latencyOf(const Process&);
    static tavrin::Seconds timeoutOf(const ElementReference&);

    tavrin::VirtualScheduler& scheduler_;
    WorldCalls world_;
    const ProcessTable& processes_;
    const Permission& permission_;
    const Uncertainties& uncertainties_;
    MenuContents menus_;
    AccessibilityTree tree_;
    std::map<std::string, std::uint64_t> messages_;
    bool varies_;
    std::mt19937_64 random_;
};

} // namespace mac_model
