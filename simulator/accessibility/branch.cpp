#include "accessibility/branch.h"

#include <utility>

namespace mac_model {

using Error = AccessibilityError;

ElementKey childOf(const ElementKey& parent, ElementKey::Kind kind, std::uint64_t owner) {
    return {.process = parent.process, .kind = kind, .owner = owner, .generation = 0, .path = {}};
}

ElementKey withKind(ElementKey key, ElementKey::Kind kind) {
    key.kind = kind;
    return key;
}

ElementKey inPath(ElementKey key, ElementKey::Kind kind, std::uint32_t entry) {
    key.kind = kind;
    key.path.push_back(entry);
    return key;
}

ElementKey outOfPath(ElementKey key, ElementKey::Kind kind) {
    key.kind = kind;
    key.path.pop_back();
    return key;
}

AttributeResult unsupported() { return std::unexpected(Error::AttributeUnsupported); }

AttributeResult noValue() { return std::unexpected(Error::NoValue); }

AttributeResult elements(const Branch::Keys& keys) {
    std::vector<AccessibilityElement> list;
    for (const auto& key : keys) list.push_back(elementFor(key));
    return AttributeValue(std::move(list));
}

AttributeResult textOrNone(const std::string& text) {
    return text.empty() ? noValue() : AttributeResult(text);
}

} // namespace mac_model
