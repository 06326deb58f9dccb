#include "accessibility/element.h"

namespace mac_model {

bool ElementReference::equals(const Reference& other) const {
    const auto* reference = dynamic_cast<const ElementReference*>(&other);
    return reference && reference->key_ == key_;
}

std::size_t ElementReference::hash() const {
    std::uint64_t hash = 0xCBF29CE484222325; // FNV-1a over the key's numbers
    const auto mix = [&hash](std::uint64_t number) { hash = (hash ^ number) * 0x100000001B3; };
    mix(static_cast<std::uint64_t>(key_.process));
    mix(static_cast<std::uint64_t>(key_.kind));
    mix(key_.owner);
    mix(key_.generation);
    for (const auto step : key_.path) mix(step);
    return hash;
}

AccessibilityElement elementFor(ElementKey key) {
    return AccessibilityElement(std::make_shared<const ElementReference>(std::move(key)));
}

} // namespace mac_model
