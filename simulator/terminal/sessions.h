#pragma once

#include "driver/driver.h"

#include <istream>
#include <ostream>

namespace mac_model {

/// Answers each line with a line until the input ends.
void serveLines(Driver&, std::istream& in, std::ostream& out);

/// The same Mac for a person at a terminal: short commands in; the menu bar and what is open out, after each.
void servePrompt(Driver&, std::istream& in, std::ostream& out);

} // namespace mac_model
