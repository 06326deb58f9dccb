#include "platform/macos/support/conversions.h"

#include "base/unicode.h"
#include "platform/macos/support/main_thread.h"

#include <type_traits>
#include <utility>
#include <vector>

namespace tavrin::macos {

static_assert(std::is_same_v<unichar, std::uint16_t>);

NSString* toNSString(std::string_view text) {
    const auto units = utf16From(text);
    if (units.empty()) return @"";
    return [NSString stringWithCharacters:units.data() length:units.size()];
}

NSString* localized(std::string_view text) {
    NSString* own = toNSString(text);
    return text.empty() ? own : [NSBundle.mainBundle localizedStringForKey:own value:own table:nil];
}

CfReference<CFStringRef> cfString(std::string_view text) { return cfBridged<CFStringRef>(toNSString(text)); }

std::string toString(NSString* text) {
    std::vector<std::uint16_t> units(text.length);
    if (units.empty()) return {};
    [text getCharacters:units.data() range:NSMakeRange(0, units.size())];
    return utf8From(units);
}

std::optional<std::string> textIn(id value) {
    if (![value isKindOfClass:NSString.class]) return std::nullopt;
    return toString(value);
}

double primaryScreenHeight() {
    assertMainThread();
    NSScreen* primary = NSScreen.screens.firstObject;
    return primary ? primary.frame.size.height : 0;
}

Rect toRect(NSRect rect) { return flipped(rectFromQuartz(rect), primaryScreenHeight()); }

NSRect toNSRect(Rect rect) {
    const auto flippedBack = flipped(rect, primaryScreenHeight());
    return NSMakeRect(flippedBack.x, flippedBack.y, flippedBack.width, flippedBack.height);
}

namespace {

std::optional<DefaultsValue> numberFrom(NSNumber* number) {
    const auto value = (__bridge CFTypeRef)number;
    if (CFGetTypeID(value) == CFBooleanGetTypeID()) return DefaultsValue{static_cast<bool>(number.boolValue)};
    const auto cfNumber = static_cast<CFNumberRef>(value);
    if (CFNumberIsFloatType(cfNumber)) return DefaultsValue{number.doubleValue};
    std::int64_t integer = 0;
    if (!CFNumberGetValue(cfNumber, kCFNumberSInt64Type, &integer)) return std::nullopt;
    return DefaultsValue{integer};
}

DefaultsData dataFrom(NSData* data) {
    const auto* bytes = static_cast<const std::byte*>(data.bytes);
    return bytes ? DefaultsData(bytes, bytes + data.length) : DefaultsData();
}

DefaultsArray arrayFrom(NSArray* array) {
    DefaultsArray values;
    for (id member in array)
        if (auto value = defaultsValueFrom(member)) values.push_back(std::move(*value));
    return values;
}

DefaultsDictionary dictionaryFrom(NSDictionary* dictionary) {
    DefaultsDictionary values;
    for (id key in dictionary) {
        const auto name = textIn(key);
        auto value = defaultsValueFrom([dictionary objectForKey:key]);
        if (name && value) values.insert_or_assign(*name, std::move(*value));
    }
    return values;
}

id listOf(bool flag) { return [NSNumber numberWithBool:flag]; }

id listOf(std::int64_t integer) { return [NSNumber numberWithLongLong:integer]; }

id listOf(double real) { return [NSNumber numberWithDouble:real]; }

id listOf(const std::string& text) { return toNSString(text); }

id listOf(const DefaultsData& data) { return [NSData dataWithBytes:data.data() length:data.size()]; }

id listOf(const DefaultsArray& values) {
    NSMutableArray* array = [NSMutableArray arrayWithCapacity:values.size()];
    for (const auto& value : values) [array addObject:propertyListFrom(value)];
    return array;
}

id listOf(const DefaultsDictionary& values) {
    NSMutableDictionary* dictionary = [NSMutableDictionary dictionaryWithCapacity:values.size()];
    for (const auto& [key, value] : values)
        [dictionary setObject:propertyListFrom(value) forKey:toNSString(key)];
    return dictionary;
}

} // namespace

std::optional<DefaultsValue> defaultsValueFrom(id propertyList) {
    if ([propertyList isKindOfClass:NSNumber.class]) return numberFrom(propertyList);
    if (auto text = textIn(propertyList)) return DefaultsValue{std::move(*text)};
    if ([propertyList isKindOfClass:NSData.class]) return DefaultsValue{dataFrom(propertyList)};
    if ([propertyList isKindOfClass:NSArray.class]) return DefaultsValue{arrayFrom(propertyList)};
    if ([propertyList isKindOfClass:NSDictionary.class]) return DefaultsValue{dictionaryFrom(propertyList)};
    return std::nullopt;
}

id propertyListFrom(const DefaultsValue& value) {
    return std::visit([](const auto& stored) -> id { return listOf(stored); }, value.value);
}

} // namespace tavrin::macos
