#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>

#include <ApplicationServices/HIServices/AXError.h>
#include <ApplicationServices/HIServices/AXUIElement.h>
#include <ApplicationServices/HIServices/AXValue.h>
