#pragma once

#include "accessibility/actions.h"
#include "accessibility/delivery.h"
#include "accessibility/element.h"
#include "accessibility/menu_contents.h"
#include "accessibility/tree.h"
#include "concurrency/virtual_scheduler.h"
#include "platform/accessibility.h"
#include "system/faults.h"
#include "system/world_calls.h"
#include "vocabulary/vocabulary.h"

#include <expected>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// Answers Accessibility messages from one process about all others. Actions happen in the world after the
/// message was answered. A process that asks about itself is answered like any other; that this deadlocks on
/// macOS while its main thread is blocked is not modelled.
class AccessibilityServer {
  public:
    AccessibilityServer(VirtualScheduler& scheduler, MessageDelivery& delivery, const AccessibilityTree& tree,
                        const MenuContents& menus, AccessibilityActions& actions, const Faults& faults)
        : world_(scheduler)
        , delivery_(delivery)
        , tree_(tree)
        , menus_(menus)
        , actions_(actions)
        , faults_(faults) {}

    using Error = AccessibilityError;

    AttributeResult attribute(ProcessIdentifier caller, const AccessibilityElement&, std::string_view name);
    std::expected<std::vector<AttributeResult>, Error> attributes(ProcessIdentifier caller,
                                                                  const AccessibilityElement&,
                                                                  std::span<const std::string_view> names);
    std::expected<std::vector<std::string>, Error> actionNames(ProcessIdentifier caller,
                                                               const AccessibilityElement&);
    std::expected<void, Error> perform(ProcessIdentifier caller, const AccessibilityElement&,
                                       std::string_view action);
    /// "AXFrontmost" of an application brings it to the front; nothing else can be set.
    std::expected<void, Error> setFlag(ProcessIdentifier caller, const AccessibilityElement&,
                                       std::string_view attribute, bool value);

  private:
    /// The element that the message reached.
    std::expected<const ElementReference*, Error> send(ProcessIdentifier caller, const AccessibilityElement&);
    std::expected<void, Error> performOn(const ElementReference&, std::string_view action);
    void actAfter(Seconds delay, const ElementKey&, std::string_view action);

    WorldCalls world_;
    MessageDelivery& delivery_;
    const AccessibilityTree& tree_;
    const MenuContents& menus_;
    AccessibilityActions& actions_;
    const Faults& faults_;
};

} // namespace mac_model
