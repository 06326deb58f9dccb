#include "accessibility/tree.h"

namespace mac_model {

using Kind = ElementKey::Kind;

const Branch& AccessibilityTree::branchOf(const ElementKey& key) const {
    switch (key.kind) {
    case Kind::Application:
    case Kind::MenuBar:
    case Kind::Title:
        return application_;
    case Kind::ExtrasBar:
    case Kind::Group:
    case Kind::StatusItem:
        return extras_;
    case Kind::StatusMenu:
    case Kind::StatusEntry:
    case Kind::TitleMenu:
    case Kind::TitleEntry:
        return menu_;
    case Kind::AgentWindow:
    case Kind::AgentGroup:
    case Kind::AgentProxy:
    case Kind::HostedItem:
    case Kind::OverflowButton:
        return agent_;
    }
    return application_;
}

bool AccessibilityTree::exists(const ElementKey& key) const {
    return processes_.find(key.process) && branchOf(key).exists(key);
}

AttributeResult AccessibilityTree::attribute(const ElementKey& key, std::string_view name) const {
    const auto& branch = branchOf(key);
    if (name == "AXRole") return branch.role(key);
    if (name == "AXParent") {
        const auto above = branch.parent(key);
        return above ? AttributeResult(elementFor(*above)) : unsupported();
    }
    if (name == "AXChildren" || name == "AXVisibleChildren") {
        const auto below = branch.children(key);
        return below ? elements(*below) : unsupported();
    }
    if (key.kind == Kind::Application) return branch.attribute(key, name);
    if (name == "AXPosition" || name == "AXSize" || name == "AXFrame") return geometry(key, name);
    return name == "AXEnabled" ? AttributeResult(branch.isEnabled(key)) : branch.attribute(key, name);
}

AttributeResult AccessibilityTree::geometry(const ElementKey& key, std::string_view name) const {
    const auto rect = branchOf(key).frame(key);
    if (!rect) return noValue();
    if (name == "AXPosition") return rect->origin();
    if (name == "AXSize") return rect->size();
    return *rect;
}

bool AccessibilityTree::isEnabled(const ElementKey& key) const { return branchOf(key).isEnabled(key); }

std::vector<std::string> AccessibilityTree::actionNames(const ElementKey& key) const {
    return branchOf(key).actionNames(key);
}

} // namespace mac_model
