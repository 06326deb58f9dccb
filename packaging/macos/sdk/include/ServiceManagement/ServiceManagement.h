#pragma once

#include <ServiceManagement/SMAppService.h>
