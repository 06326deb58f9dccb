#pragma once

// GNUstep's first: what is added extends its classes.
// clang-format off
#include_next <AppKit/AppKit.h>
#include "appkit_additions.h"
// clang-format on
