#pragma once
#include "appkit_additions.h"

#include_next <AppKit/AppKit.h>
