// GNUstep asks for this where blocks are on; the blocks come from their own runtime.
#pragma once

#include <Block.h>
