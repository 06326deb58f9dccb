#pragma once

#include <CoreServices/CarbonCore/UnicodeUtilities.h>
