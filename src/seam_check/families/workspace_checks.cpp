#include "platform/application.h"
#include "platform/workspace.h"
#include "seam_check/all_checks.h"
#include "seam_check/findings.h"
#include "seam_check/waiting.h"
#include "seam_check/words.h"

#include <algorithm>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace tavrin::seam_check {

namespace {

using namespace std::chrono_literals;

Verdict versionIsKnown(const Platform& platform) {
    const auto version = platform.workspace.operatingSystemVersion();
    const auto seen = "macOS " + std::to_string(version.major) + "." + std::to_string(version.minor);
    const bool isLikely = version.major >= 11 && version.major < 100 && version.minor >= 0;
    return isLikely ? passed(seen + ".") : failed(seen + " is no version that Tavrin runs on.");
}

Task<Verdict> programIsListed(Platform platform) {
    const auto own = platform.application.processIdentifier();
    const auto entriesOfOwn = [platform, own] {
        return std::ranges::count(platform.workspace.runningApplications(), own,
                                  &RunningApplication::processIdentifier);
    };
    // Becoming an accessory application reaches the list a moment after the launch.
    (void)co_await comesTrue(platform, [=] { return entriesOfOwn() > 0; }, 2s);
    if (entriesOfOwn() != 1)
        co_return failed("This process is listed " + std::to_string(entriesOfOwn()) + " times.");
    const auto list = platform.workspace.runningApplications();
    const auto& found = *std::ranges::find(list, own, &RunningApplication::processIdentifier);
    if (found.bundleIdentifier != platform.application.bundleIdentifier())
        co_return failed("This process is listed with another bundle identifier than its own.");
    co_return passed("It is one of " + counted(list.size(), "application") + ".");
}

Verdict finderIsRegular(const Platform& platform) {
    const auto list = platform.workspace.runningApplications();
    const auto finder = std::ranges::find(list, std::optional<std::string>("com.apple.finder"),
                                          &RunningApplication::bundleIdentifier);
    if (finder == list.end()) return failed("The Finder isn't listed.");
    return finder->isRegular ? passed("It is.") : failed("It counts as one without a Dock icon.");
}

Verdict processesAreListedOnce(const Platform& platform) {
    std::set<ProcessIdentifier> processes;
    Findings findings;
    for (const auto& application : platform.workspace.runningApplications()) {
        if (application.processIdentifier == -1) continue; // it has just ended, or begins
        findings.expect(application.processIdentifier > 0, "a process identifier isn't positive");
        findings.expect(processes.insert(application.processIdentifier).second, "a process is listed twice");
    }
    return findings.verdict(std::to_string(processes.size()) + " processes.");
}

std::vector<ProcessIdentifier> processesIn(const std::vector<RunningApplication>& list,
                                           const std::vector<RunningApplication>& other) {
    std::vector<ProcessIdentifier> both;
    for (const auto& application : list) {
        const bool isInBoth = std::ranges::find(other, application.processIdentifier,
                                                &RunningApplication::processIdentifier) != other.end();
        if (isInBoth) both.push_back(application.processIdentifier);
    }
    return both;
}

Verdict listKeepsItsOrder(const Platform& platform) {
    const auto first = platform.workspace.runningApplications();
    const auto second = platform.workspace.runningApplications();
    const auto stayed = processesIn(first, second);
    if (stayed != processesIn(second, first)) return failed("Two readings have different orders.");
    return passed(counted(stayed.size(), "application") + " stand in the same order twice.");
}

Task<Verdict> bundlesAreFound(Platform platform) {
    constexpr std::string_view finder = "/System/Library/CoreServices/Finder.app";
    const auto& workspace = platform.workspace;
    Findings findings;
    findings.expect(workspace.bundleIdentifierAt(finder) == "com.apple.finder", "the Finder isn't found");
    findings.expect(workspace.bundleIdentifierAt(std::string(finder) + "/") == "com.apple.finder",
                    "a slash at the end of a path matters");
    for (const auto* path : {"", "/", "/System/Library/CoreServices/No such bundle.app", "no path", "\xFF"})
        findings.expect(!workspace.bundleIdentifierAt(path), quoted(path) + " has a bundle identifier");
    const auto elsewhere = co_await offTheMainThread(
        platform, [&workspace, finder] { return workspace.bundleIdentifierAt(finder); });
    findings.expect(elsewhere && *elsewhere == "com.apple.finder", "on a queue the Finder isn't found");
    co_return findings.verdict("The Finder is com.apple.finder; five other paths lead to no bundle.");
}

/// A PNG's signature and its header with the width and the height.
bool isIcon(const std::optional<std::vector<std::byte>>& file) {
    constexpr std::string_view begin("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\0\0 \0\0\0 ", 24);
    return file && file->size() > begin.size() &&
           std::ranges::equal(begin, std::span(*file).first(begin.size()),
                              [](char a, std::byte b) { return std::byte(a) == b; });
}

Verdict iconsAreDrawn(const Platform& platform) {
    const auto& workspace = platform.workspace;
    Findings findings;
    findings.expect(isIcon(workspace.iconPngOfProcess(platform.application.processIdentifier())),
                    "this process has no icon of 32 × 32 pixels");
    findings.expect(isIcon(workspace.iconPngOfBundle("com.apple.finder")),
                    "the Finder has no icon of 32 × 32 pixels");
    findings.expect(!workspace.iconPngOfProcess(-1), "no process has an icon");
    findings.expect(!workspace.iconPngOfBundle("org.tavrin.no-such-application"),
                    "an application that isn't there has an icon");
    return findings.verdict("This process and the Finder have icons.");
}

Verdict menusHaveAnOwner(const Platform& platform) {
    const auto owner = platform.workspace.menuBarOwner();
    if (!owner) return failed("No application has its menus in the menu bar.");
    const auto running = platform.workspace.runningApplications();
    const auto found = std::ranges::find(running, *owner, &RunningApplication::processIdentifier);
    if (found == running.end()) return failed("Its owner doesn't run.");
    return passed("The menus are those of " + found->localizedName + ".");
}

} // namespace

std::vector<Check> workspaceChecks() {
    constexpr auto family = "workspace";
    return {
        reads(family, "The version of macOS is known.", versionIsKnown),
        reads(family, "The running applications contain this process once, with its bundle identifier.",
              programIsListed),
        reads(family, "The Finder is listed as a regular application.", finderIsRegular),
        reads(family, "No process is listed twice.", processesAreListedOnce),
        reads(family, "Applications that stay keep their order in the list.", listKeepsItsOrder),
        reads(family, "A path leads to its bundle's identifier, and to none without a bundle, on any thread.",
              bundlesAreFound),
        reads(family, "The menus in the menu bar belong to a running application.", menusHaveAnOwner),
        reads(family, "Icons are pictures of 32 × 32 pixels, and who isn't there has none.", iconsAreDrawn),
    };
}

} // namespace tavrin::seam_check
