#pragma once

#include "platform/text.h"

#include <memory>

namespace mac_model {

/// Text services by ICU, for the locale en_US whatever the machine's own is.
std::unique_ptr<tavrin::Text> makeIcuText();

} // namespace mac_model
