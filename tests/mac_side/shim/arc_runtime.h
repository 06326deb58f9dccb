#pragma once

#include <objc/objc.h>

/// A value that an object holds by a name, for what categories add. It goes with the object; nil while there
/// is none.
id tavrinHung(id object, const char* name);
void tavrinHang(id object, const char* name, id value);
