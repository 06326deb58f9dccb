#include "accessibility/branch.h"

#include <utility>

namespace mac_model {

using Error = tavrin::AccessibilityError;

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

tavrin::AttributeResult unsupported() { return std::unexpected(Error::AttributeUnsupported); }

tavrin::AttributeResult noValue() { return std::unexpected(Error::NoValue); }

tavrin::AttributeResult textOrNone(const std::string& text) {
    return text.empty() ? noValue() : tavrin::AttributeResult(text);
}

} // namespace mac_model
