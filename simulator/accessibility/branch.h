#pragma once

#include "accessibility/element.h"
#include "vocabulary/vocabulary.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mac_model {

/// The elements of some kinds in the Accessibility trees of all processes: one branch knows which of them
/// exist, and the parent, the children and the attributes of each. Ask `exists` first; the other questions
/// are for living elements.
class Branch {
  public:
    using Keys = std::vector<ElementKey>;

    Branch() = default;
    Branch(const Branch&) = delete;
    Branch& operator=(const Branch&) = delete;
    virtual ~Branch() = default;

    virtual bool exists(const ElementKey&) const = 0;
    virtual std::string role(const ElementKey&) const = 0;
    /// None at the top.
    virtual std::optional<ElementKey> parent(const ElementKey&) const = 0;
    /// None when the element supports no children.
    virtual std::optional<Keys> children(const ElementKey&) const = 0;
    /// None when it is nowhere on the screen.
    virtual std::optional<Rect> frame(const ElementKey&) const = 0;
    /// Any attribute but role, parent, children, geometry and whether it is enabled.
    virtual AttributeResult attribute(const ElementKey&, std::string_view name) const = 0;

    virtual bool isEnabled(const ElementKey&) const { return true; }

    virtual std::vector<std::string> actionNames(const ElementKey&) const { return {}; }
};

// Keys of neighbours and common results, for the branches.

ElementKey childOf(const ElementKey& parent, ElementKey::Kind, std::uint64_t owner);
ElementKey withKind(ElementKey, ElementKey::Kind);
/// One level further in, at `entry`.
ElementKey inPath(ElementKey, ElementKey::Kind, std::uint32_t entry);
/// One level back.
ElementKey outOfPath(ElementKey, ElementKey::Kind);

AttributeResult unsupported();
AttributeResult noValue();
AttributeResult elements(const Branch::Keys&);
/// For attributes that an element always knows, but which may be empty.
AttributeResult textOrNone(const std::string&);

} // namespace mac_model
