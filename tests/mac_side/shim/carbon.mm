// Carbon's hot keys and keyboard layouts, those of the modelled Mac.
#include "answering_mac.h"
#include "platform/hot_keys.h"
#include "told.h"

#import <AppKit/AppKit.h>
#include <Carbon/Carbon.h>
#include <algorithm>
#include <memory>

struct OpaqueEventRef {
    EventHotKeyID identifier;
};

struct OpaqueEventHandlerRef {
    std::unique_ptr<tavrin::HotKeyEventHandler> installed; // none while no Mac answers
};

struct OpaqueEventHotKeyRef {
    std::unique_ptr<tavrin::HotKeyReference> registered;
};

namespace {

using Handling = tavrin::HotKeys::Handling;

constexpr OSStatus parameterError = -50; // paramErr

std::unique_ptr<tavrin::HotKeyEventHandler> install(EventHandlerUPP handler, void* userData) {
    return answeringMac()->hotKeys.installPressHandler([=](const tavrin::HotKeyIdentifier& pressed) {
        OpaqueEventRef event{{pressed.signature, pressed.identifier}};
        return handler(nullptr, &event, userData) == noErr ? Handling::Handled : Handling::NotHandled;
    });
}

NSDictionary* entryFor(const tavrin::SymbolicHotKey& hotKey) {
    NSMutableDictionary* entry = [NSMutableDictionary dictionary];
    if (hotKey.isEnabled) entry[@"kHISymbolicHotKeyEnabled"] = [NSNumber numberWithBool:*hotKey.isEnabled];
    if (hotKey.code) entry[@"kHISymbolicHotKeyCode"] = @(*hotKey.code);
    if (hotKey.modifiers) entry[@"kHISymbolicHotKeyModifiers"] = @(*hotKey.modifiers);
    return entry;
}

/// The one layout there is: only its address counts.
NSData* layoutData() {
    static NSData* made = [NSMutableData dataWithLength:sizeof(UCKeyboardLayout)];
    return made;
}

} // namespace

extern "C" {

EventTargetRef GetApplicationEventTarget(void) { return nullptr; }

OSStatus InstallEventHandler(EventTargetRef, EventHandlerUPP handler, ItemCount, const EventTypeSpec*,
                             void* userData, EventHandlerRef* installed) {
    if (const auto* told = toldFor(__func__)) return told->status;
    auto made = std::make_unique<OpaqueEventHandlerRef>();
    if (answeringMac()) made->installed = install(handler, userData);
    if (answeringMac() && !made->installed) return parameterError;
    *installed = made.release();
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef handler) {
    delete handler;
    return noErr;
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType wanted, EventParamType*,
                           ByteCount capacity, ByteCount*, void* data) {
    if (const auto* told = toldFor(__func__)) return told->status;
    if (name != kEventParamDirectObject || wanted != typeEventHotKeyID || capacity < sizeof(EventHotKeyID))
        return parameterError;
    *static_cast<EventHotKeyID*>(data) = event->identifier;
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 key, UInt32 modifiers, EventHotKeyID identifier, EventTargetRef,
                             OptionBits, EventHotKeyRef* registered) {
    if (const auto* told = toldFor(__func__)) return told->status;
    auto made = std::make_unique<OpaqueEventHotKeyRef>();
    if (answeringMac()) {
        auto result =
            answeringMac()->hotKeys.registerHotKey(key, modifiers, {identifier.signature, identifier.id});
        if (!result) return result.error();
        made->registered = std::move(*result);
    }
    *registered = made.release();
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey) {
    delete hotKey;
    return noErr;
}

OSStatus CopySymbolicHotKeys(CFArrayRef* hotKeys) {
    if (const auto* told = toldFor(__func__)) return told->give(hotKeys);
    NSMutableArray* list = [NSMutableArray array];
    if (answeringMac())
        for (const auto& hotKey : answeringMac()->hotKeys.symbolicHotKeys())
            [list addObject:entryFor(hotKey)];
    *hotKeys = (__bridge_retained CFArrayRef)list;
    return noErr;
}

UInt8 LMGetKbdType(void) { return 40; }

const CFStringRef kTISPropertyUnicodeKeyLayoutData =
    (__bridge CFStringRef) @"TISPropertyUnicodeKeyLayoutData";

TISInputSourceRef TISCopyCurrentKeyboardLayoutInputSource(void) {
    if (const auto* told = toldFor(__func__)) return (TISInputSourceRef)told->retained();
    if (!answeringMac()) return nullptr;
    return (TISInputSourceRef)(__bridge_retained void*)[[NSObject alloc] init];
}

void* TISGetInputSourceProperty(TISInputSourceRef, CFStringRef) {
    if (const auto* told = toldFor(__func__)) return (__bridge void*)told->value;
    return (__bridge void*)layoutData();
}

OSStatus UCKeyTranslate(const UCKeyboardLayout*, UInt16 key, UInt16, UInt32, UInt32, UInt32, UInt32*,
                        UniCharCount capacity, UniCharCount* count, UniChar* units) {
    if (const auto* told = toldFor(__func__)) return told->status;
    if (!answeringMac()) return parameterError;
    NSString* character = [NSString stringWithUTF8String:answeringMac()->keyboard.character(key).c_str()];
    *count = std::min<UniCharCount>(character.length, capacity);
    [character getCharacters:units range:NSMakeRange(0, *count)];
    return noErr;
}
}

void tavrinBeep(void) {
    if (answeringMac()) answeringMac()->keyboard.beep();
}
