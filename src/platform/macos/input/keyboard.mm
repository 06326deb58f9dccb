#include "platform/macos/input/keyboard.h"

#include "base/unicode.h"
#include "platform/macos/support/apple.h"
#include "platform/macos/support/cf_reference.h"
#include "platform/macos/support/main_thread.h"
#include "platform/macos/system/scheduler.h"

#include <algorithm>
#include <array>
#include <memory>
#include <span>
#include <utility>

namespace tavrin::macos {

namespace {

static_assert(shiftKeyFlag == NSEventModifierFlagShift && controlKeyFlag == NSEventModifierFlagControl &&
              optionKeyFlag == NSEventModifierFlagOption && commandKeyFlag == NSEventModifierFlagCommand);

/// Belongs to the input source; null when it has no layout.
const UCKeyboardLayout* layoutOf(TISInputSourceRef source) {
    const auto property = TISGetInputSourceProperty(source, kTISPropertyUnicodeKeyLayoutData);
    const auto data = cfCast<CFDataRef>(property, CFDataGetTypeID());
    return data ? reinterpret_cast<const UCKeyboardLayout*>(CFDataGetBytePtr(data)) : nullptr;
}

std::string characterOn(const UCKeyboardLayout& layout, KeyCode key) {
    constexpr UInt32 noModifiers = 0;
    UInt32 deadKeyState = 0;
    std::array<std::uint16_t, 8> units{};
    UniCharCount count = 0;
    const auto status =
        UCKeyTranslate(&layout, static_cast<UInt16>(key), kUCKeyActionDisplay, noModifiers, LMGetKbdType(),
                       kUCKeyTranslateNoDeadKeysMask, &deadKeyState, units.size(), &count, units.data());
    return status == noErr ? utf8From(std::span(units).first(std::min(count, units.size()))) : std::string();
}

} // namespace

std::string MacKeyboard::character(KeyCode key) const {
    assertMainThread();
    const auto source = CfReference<TISInputSourceRef>::adopting(TISCopyCurrentKeyboardLayoutInputSource());
    const auto* layout = source ? layoutOf(source.get()) : nullptr;
    return layout ? characterOn(*layout, key) : std::string();
}

Subscription MacKeyboard::monitorKeyDown(std::function<KeyHandling(const KeyPress&)> handler) {
    assertMainThread();
    const auto shared = std::make_shared<std::function<KeyHandling(const KeyPress&)>>(std::move(handler));
    auto& scheduler = scheduler_;
    const id monitor = [NSEvent
        addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                     handler:^NSEvent*(NSEvent* event) {
                                         const auto running = shared; // it may remove this monitor
                                         auto handling = KeyHandling::PassedOn;
                                         runReportingAllFaults(scheduler, [&] {
                                             handling = (*running)({event.keyCode, event.modifierFlags});
                                         });
                                         return handling == KeyHandling::Consumed ? nil : event;
                                     }];
    return Subscription([monitor] { [NSEvent removeMonitor:monitor]; });
}

void MacKeyboard::beep() { NSBeep(); }

} // namespace tavrin::macos
