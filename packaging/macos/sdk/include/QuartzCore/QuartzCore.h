#pragma once

#include <Foundation/Foundation.h>
