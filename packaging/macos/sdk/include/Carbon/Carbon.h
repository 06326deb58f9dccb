#pragma once

#include <ApplicationServices/ApplicationServices.h>
#include <CoreServices/CoreServices.h>

#include <Carbon/HIToolbox/CarbonEvents.h>
#include <Carbon/HIToolbox/CarbonEventsCore.h>
#include <Carbon/HIToolbox/Events.h>
#include <Carbon/HIToolbox/TextInputSources.h>
