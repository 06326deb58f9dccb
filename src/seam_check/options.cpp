#include "seam_check/options.h"

#include <algorithm>
#include <cstddef>

namespace tavrin::seam_check {

std::string_view helpText() {
    return "usage: tavrin-seam-check [--changes | --guided]\n"
           "Looks whether this Mac keeps what Tavrin expects of macOS, and prints a report that can be sent "
           "to anybody:\n"
           "it names no application, file or text of yours.\n"
           "  (nothing)   only reads\n"
           "  --changes   also makes what a person might notice: preferences of its own, status items, windows "
           "and a popover for moments, mouse events that drag only an item of its own; one long item hides the "
           "others for a moment; it leaves nothing behind\n"
           "  --guided    also asks for two clicks and a key, each within half a minute, and ends with a "
           "page of what only eyes can tell\n"
           "  --help      shows this\n"
           "The exit status is 0 when every promise was tried and kept, 1 when one was broken, 3 when none was "
           "but some stayed untried, and 2 for a wrong option.\n";
}

std::expected<Options, std::string> parseOptions(const std::vector<std::string_view>& arguments) {
    Options options;
    for (std::size_t n = 0; n < arguments.size(); ++n) {
        const auto argument = arguments[n];
        if (argument == "--changes")
            options.scope = std::max(options.scope, Scope::WithChanges);
        else if (argument == "--guided")
            options.scope = Scope::Guided;
        else if (argument == "--help" || argument == "-h")
            options.wantsHelp = true;
        else if (argument == expectOption && n + 1 < arguments.size())
            options.expected = arguments[++n];
        else
            return std::unexpected("There is no option “" + std::string(argument) +
                                   "”; --help lists those there are.");
    }
    return options;
}

} // namespace tavrin::seam_check
