#pragma once

typedef unsigned int boolean_t;
