#include "seam_check/options.h"

namespace tavrin::seam_check {

std::string_view helpText() {
    return "usage: tavrin-seam-check [--changes]\n"
           "Looks whether this Mac keeps what Tavrin expects of macOS, and prints a report that can be sent "
           "to anybody:\n"
           "it names no application, file or text of yours.\n"
           "  (nothing)   only reads\n"
           "  --changes   also makes what a person might notice: preferences of its own, a status item and a "
           "popover for a moment, mouse events that move nothing; it leaves nothing behind\n"
           "  --help      shows this\n"
           "The exit status is 0 when no check has failed, 1 when one has, and 2 for a wrong option.\n";
}

std::expected<Options, std::string> parseOptions(const std::vector<std::string_view>& arguments) {
    Options options;
    for (const auto argument : arguments) {
        if (argument == "--changes")
            options.scope = Scope::WithChanges;
        else if (argument == "--help" || argument == "-h")
            options.wantsHelp = true;
        else
            return std::unexpected("There is no option “" + std::string(argument) +
                                   "”; --help lists those there are.");
    }
    return options;
}

} // namespace tavrin::seam_check
