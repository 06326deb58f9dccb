#include "support/program_platform.h"

namespace mac_model {

ProgramFactory onPlatformOfTests(ProgramFactory factory) { return factory; }

} // namespace mac_model
