#include "discovery/accessibility_menu_bar_scanner.h"

#include "concurrency/scheduler.h"
#include "discovery/extras_presence_results.h"
#include "discovery/item_snapshots.h"
#include "discovery/menu_bar_item_scan_policy.h"
#include "discovery/system_menu_extra_catalog.h"
#include "platform/accessibility_names.h"
#include "platform/text.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavrin {

namespace {

/// The process whose items have places in its preferences but no identifiers in its tree.
constexpr std::string_view systemUserInterfaceServer = "com.apple.systemuiserver";

ApplicationReader::Bars barsOf(std::string_view bundleIdentifier, bool isRegular) {
    using Bars = ApplicationReader::Bars;
    if (!MenuBarItemScanPolicy::isApple(bundleIdentifier)) return Bars::Extras;
    return isRegular ? Bars::ExtrasElseExtrasInMenuBar : Bars::ExtrasElseMenuBar;
}

std::optional<std::string> firstLabel(const MenuBarElement& element, const Text& text) {
    for (const auto* source : {&element.title, &element.description, &element.help}) {
        if (!*source) continue;
        if (auto trimmed = text.trimmed(**source); !trimmed.empty()) return trimmed;
    }
    return std::nullopt;
}

} // namespace

AccessibilityMenuBarScanner::AccessibilityMenuBarScanner(Scheduler& scheduler, Accessibility& accessibility,
                                                         const Defaults& defaults, const Workspace& workspace,
                                                         const Text& text)
    : scheduler_(scheduler)
    , accessibility_(accessibility)
    , defaults_(defaults)
    , workspace_(workspace)
    , text_(text) {}

std::expected<ScanResult, ReadFailure>
AccessibilityMenuBarScanner::scan(std::span<const RunningApplicationSnapshot> applications,
                                  const HidingBoundary& boundary, const AbandonFlag& abandoned) const {
    ScanResult result;
    auto& items = result.items;
    std::optional<ReadFailure> failure;
    std::optional<ProcessIdentifier> lastThatAnswered;
    for (const auto& application : applications) {
        const auto records = menuBarItemRecords(application, abandoned);
        if (records) {
            lastThatAnswered = application.processIdentifier;
            std::ranges::move(snapshotsOf(application, factsOf(*records), text_), std::back_inserter(items));
        } else {
            failure = records.error();
            result.unanswered.push_back(application.processIdentifier);
        }
    }
    if (abandoned.isRaised()) return std::unexpected(ReadFailure::Abandoned);
    // An access that was revoked in mid-scan fails from then on with everybody, at once or by time-outs,
    // while the trust flag may still tell of trust.
    if (failure && !(lastThatAnswered && answers(*lastThatAnswered))) return std::unexpected(*failure);
    MenuBarItemScanPolicy::setZones(items, boundary);
    MenuBarItemScanPolicy::sort(items, text_);
    return result;
}

bool AccessibilityMenuBarScanner::answers(ProcessIdentifier process) const {
    return readOne<AccessibilityElement>(accessibility_, accessibility_.application(process),
                                         ax::extrasMenuBar, messagingTimeout)
        .has_value();
}

AccessibilityMenuBarScanner::Records
AccessibilityMenuBarScanner::menuBarItemRecords(const RunningApplicationSnapshot& application,
                                                const AbandonFlag& abandoned) const {
    const auto& bundleIdentifier = application.bundleIdentifier;
    auto elements =
        ApplicationReader(accessibility_, messagingTimeout, abandoned)
            .readItems(application.processIdentifier, barsOf(bundleIdentifier, application.isRegular));
    if (!elements) return std::unexpected(elements.error());
    std::vector<ItemCandidate> candidates;
    for (auto& element : *elements) candidates.push_back(candidate(std::move(element), bundleIdentifier));
    if (bundleIdentifier == systemUserInterfaceServer) identifyByPosition(candidates);

    const bool needsIdentity = MenuBarItemScanPolicy::isApple(bundleIdentifier);
    std::vector<ItemRecord> records;
    for (auto& found : candidates) {
        if (!MenuBarItemScanPolicy::isValidFrame(found.metadata.frame)) continue;
        if (needsIdentity && !found.directlyResolvedIdentifier) continue;
        records.push_back({std::move(found.element), std::move(found.metadata),
                           std::move(found.directlyResolvedIdentifier)});
    }
    return records;
}

std::vector<ItemFacts> AccessibilityMenuBarScanner::factsOf(const std::vector<ItemRecord>& records) {
    std::vector<ItemFacts> facts;
    for (const auto& record : records)
        facts.push_back({record.canonicalIdentifier, record.metadata.label, record.metadata.frame});
    return facts;
}

AccessibilityMenuBarScanner::ItemCandidate
AccessibilityMenuBarScanner::candidate(MenuBarElement element, std::string_view bundleIdentifier) const {
    MenuBarItemScanMetadata metadata{.role = element.role,
                                     .rawIdentifier = element.rawIdentifier,
                                     .label = firstLabel(element, text_),
                                     .frame = element.frame()};
    auto identifier = MenuBarItemScanPolicy::canonicalIdentifier(bundleIdentifier, metadata.rawIdentifier,
                                                                 metadata.label, metadata.frame.width, text_);
    return {std::move(element.element), std::move(metadata), std::move(identifier)};
}

void AccessibilityMenuBarScanner::identifyByPosition(std::vector<ItemCandidate>& candidates) const {
    std::vector<ItemCandidate*> unidentified;
    std::vector<Rect> frames;
    for (auto& candidate : candidates) {
        if (candidate.directlyResolvedIdentifier) continue;
        unidentified.push_back(&candidate);
        frames.push_back(candidate.metadata.frame);
    }
    if (unidentified.empty()) return;
    const auto descriptors = SystemMenuExtraCatalog::currentDescriptors(defaults_, workspace_, text_);
    auto identifiers = SystemMenuExtraCatalog::matchCanonicalIdentifiers(descriptors, frames);
    for (std::size_t i = 0; i < unidentified.size(); ++i) {
        unidentified[i]->directlyResolvedIdentifier = std::move(identifiers[i]);
    }
}

std::vector<ExtrasMenuBarPresence>
AccessibilityMenuBarScanner::extrasPresence(std::span<const RunningApplicationSnapshot> applications,
                                            Seconds timeout) const {
    std::vector<RunningApplicationSnapshot> probed;
    std::ranges::copy_if(applications, std::back_inserter(probed), [](const auto& application) {
        return !MenuBarItemScanPolicy::isApple(application.bundleIdentifier);
    });
    if (probed.empty()) return {};
    ExtrasPresenceResults results(probed.size());
    scheduler_.concurrentPerform(probed.size(), [&](std::size_t i) {
        if (auto found = presence(probed[i], timeout)) results.fill(i, std::move(*found));
    });
    return results.filled();
}

std::optional<ExtrasMenuBarPresence>
AccessibilityMenuBarScanner::presence(const RunningApplicationSnapshot& application, Seconds timeout) const {
    const auto elements = ApplicationReader(accessibility_, timeout, {})
                              .readItems(application.processIdentifier,
                                         barsOf(application.bundleIdentifier, application.isRegular));
    if (!elements || elements->empty()) return std::nullopt;
    ExtrasMenuBarPresence found{.bundleIdentifier = application.bundleIdentifier,
                                .processIdentifier = application.processIdentifier,
                                .applicationName = application.localizedName,
                                .itemCount = static_cast<int>(elements->size()),
                                .frames = {}};
    for (const auto& element : *elements) {
        if (MenuBarItemScanPolicy::isValidFrame(element.frame())) found.frames.push_back(element.frame());
    }
    return found;
}

std::optional<AccessibilityElement>
AccessibilityMenuBarScanner::resolveElement(const MenuBarItemSnapshot& snapshot) const {
    const auto records = menuBarItemRecords({.bundleIdentifier = snapshot.bundleIdentifier,
                                             .processIdentifier = snapshot.processIdentifier,
                                             .localizedName = snapshot.applicationName,
                                             .isRegular = snapshot.isOwnerRegular},
                                            {});
    if (!records) return std::nullopt;
    std::vector<std::optional<std::string>> canonical;
    for (const auto& record : *records) canonical.push_back(record.canonicalIdentifier);
    const auto index = MenuBarItemScanPolicy::fallbackItemIndex(snapshot.bundleIdentifier, canonical,
                                                                snapshot.accessibilityIdentifier,
                                                                snapshot.statusItemIndex, text_);
    if (!index) return std::nullopt;
    return (*records)[*index].element;
}

} // namespace tavrin
