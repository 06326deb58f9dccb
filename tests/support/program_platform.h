#pragma once

#include "seam/system/program_host.h"

namespace mac_model {

/// The program with the platform that it gets in these tests: the modelled Mac's own, or, in `./test
/// --mac-side`, the sources for the real Mac, which take the modelled one for theirs.
ProgramFactory onPlatformOfTests(ProgramFactory);

} // namespace mac_model
