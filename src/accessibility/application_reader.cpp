#include "accessibility/application_reader.h"

#include "platform/accessibility_names.h"

#include <utility>

namespace tavrin {

/// Keeps the status items; a menu below one is not looked into.
class ApplicationReader::Collector final : public ElementWalk::Visitor {
  public:
    explicit Collector(ItemsOfBar wanted) : wanted_(wanted) {}

    ElementWalk::Step see(ElementWalk::Seen seen) override {
        if (seen.element.role != ax::menuBarItemRole) return ElementWalk::Step::Into;
        if (wanted_ == ItemsOfBar::All || seen.isMenuExtra) items.push_back(std::move(seen.element));
        return items.size() > itemsBeyondWhichToStop ? ElementWalk::Step::Stop : ElementWalk::Step::Past;
    }

    std::vector<MenuBarElement> items;

  private:
    ItemsOfBar wanted_;
};

ApplicationReader::ApplicationReader(Accessibility& accessibility, Seconds messagingTimeout,
                                     AbandonFlag abandoned)
    : accessibility_(accessibility)
    , timeout_(messagingTimeout)
    , abandoned_(std::move(abandoned)) {}

std::expected<std::vector<MenuBarElement>, ReadFailure>
ApplicationReader::readItems(ProcessIdentifier process, Bars bars) const {
    const auto application = accessibility_.application(process);
    const auto extras = readBar(application, ax::extrasMenuBar);
    if (!extras || *extras || bars == Bars::Extras) return itemsIn(extras, ItemsOfBar::All);
    const bool hasTitles = bars == Bars::ExtrasElseExtrasInMenuBar;
    return itemsIn(readBar(application, ax::menuBar), hasTitles ? ItemsOfBar::MenuExtras : ItemsOfBar::All);
}

ApplicationReader::Items ApplicationReader::itemsIn(const BarResult& bar, ItemsOfBar wanted) const {
    if (!bar) return std::unexpected(bar.error());
    Collector collector(wanted);
    if (!*bar) return std::move(collector.items);
    const ElementWalk walk(accessibility_, timeout_, abandoned_);
    if (const auto ended = walk.run(std::span(&**bar, 1), collector); !ended)
        return std::unexpected(ended.error());
    return std::move(collector.items);
}

ApplicationReader::BarResult ApplicationReader::readBar(const AccessibilityElement& application,
                                                        std::string_view attribute) const {
    if (abandoned_.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    return readOne<AccessibilityElement>(accessibility_, application, attribute, timeout_);
}

} // namespace tavrin
