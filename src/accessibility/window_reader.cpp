#include "accessibility/window_reader.h"

#include "platform/accessibility_names.h"

#include <set>
#include <utility>

namespace tavrin {

class WindowReader::Collector final : public ElementWalk::Visitor {
  public:
    Collector(const Accessibility& accessibility, ProcessIdentifier process)
        : accessibility_(accessibility)
        , process_(process) {}

    ElementWalk::Step see(ElementWalk::Seen seen) override {
        const auto& role = seen.element.role;
        const bool isProxy = role == ax::groupRole && seen.children.empty();
        const bool isItem = role == ax::buttonRole || role == ax::menuBarItemRole || isProxy;
        if (!isItem) return ElementWalk::Step::Into;
        const auto process = processOf(seen.element.element);
        items.push_back({std::move(seen.element), process, static_cast<int>(seen.root)});
        return ElementWalk::Step::Past;
    }

    bool isPassed(const AccessibilityElement& element, std::size_t) override {
        return !silent_.empty() && silent_.contains(processOf(element));
    }

    bool outlives(ReadFailure failure, const AccessibilityElement& element, std::size_t) override {
        const auto process = processOf(element);
        if (failure != ReadFailure::TimedOut || process == process_) return false;
        silent_.insert(process);
        return true;
    }

    std::vector<WindowElement> items;

  private:
    ProcessIdentifier processOf(const AccessibilityElement& element) const {
        return accessibility_.processOf(element).value_or(process_);
    }

    const Accessibility& accessibility_;
    ProcessIdentifier process_;
    std::set<ProcessIdentifier> silent_;
};

WindowReader::WindowReader(Accessibility& accessibility, Seconds messagingTimeout, AbandonFlag abandoned)
    : accessibility_(accessibility)
    , timeout_(messagingTimeout)
    , abandoned_(std::move(abandoned)) {}

std::expected<std::vector<WindowElement>, ReadFailure>
WindowReader::readItems(ProcessIdentifier process) const {
    if (abandoned_.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    const auto windows = readOne<AccessibilityElements>(accessibility_, accessibility_.application(process),
                                                        ax::windows, timeout_);
    if (!windows) return std::unexpected(windows.error());
    Collector collector(accessibility_, process);
    const ElementWalk walk(accessibility_, timeout_, abandoned_);
    if (const auto ended = walk.run(windows->value_or(AccessibilityElements{}), collector); !ended)
        return std::unexpected(ended.error());
    return std::move(collector.items);
}

} // namespace tavrin
