#include "terminal/sessions.h"

#include "terminal/menu_bar_drawing.h"
#include "terminal/prompt_line.h"
#include "terminal/surface_description.h"

#include <set>
#include <string>

namespace mac_model {

namespace {

/// Keeps one byte more than a line may have, so that its excess shows without being stored.
bool readLine(std::istream& in, std::string& line) {
    line.clear();
    using Traits = std::istream::traits_type;
    for (auto next = in.get(); next != Traits::eof(); next = in.get()) {
        if (next == '\n') return true;
        if (line.size() <= Driver::lineBytesMax) line.push_back(Traits::to_char_type(next));
    }
    return !line.empty();
}

void showScreen(Driver& driver, std::ostream& out) {
    const auto look = driver.command({{"do", "look"}});
    out << drawMenuBar(look) << describeSurfaces(look);
}

void answer(Driver& driver, const std::string& line, std::ostream& out) {
    static const std::set<std::string> repliesToShow{"look", "defaults", "events", "stats"};
    const auto command = parsePromptLine(line);
    if (!command) {
        out << "  " << command.error() << "\n";
        return;
    }
    const auto reply = driver.command(*command);
    const auto replacing = nlohmann::json::error_handler_t::replace;
    if (!reply.value("ok", false))
        out << "  " << reply.value("error", "") << "\n";
    else if (repliesToShow.contains(command->value("do", "")))
        out << reply.dump(2, ' ', false, replacing) << "\n";
    showScreen(driver, out);
}

} // namespace

void serveLines(Driver& driver, std::istream& in, std::ostream& out) {
    for (std::string line; readLine(in, line);) out << driver.handleLine(line) << "\n" << std::flush;
}

void servePrompt(Driver& driver, std::istream& in, std::ostream& out) {
    out << "Time passes only by what you do. Type help for the commands.\n";
    showScreen(driver, out);
    for (std::string line; out << "> " << std::flush, readLine(in, line);) {
        const auto end = line.find_last_not_of(" \t\r");
        line.resize(end == std::string::npos ? 0 : end + 1);
        if (line == "exit" || line == "quit") return;
        if (line == "help")
            out << promptHelp();
        else if (!line.empty())
            answer(driver, line, out);
    }
    out << "\n";
}

} // namespace mac_model
