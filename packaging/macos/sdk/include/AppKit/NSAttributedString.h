#pragma once

#include <Foundation/Foundation.h>

typedef NSString *NSAttributedStringKey;
APPKIT_EXTERN const NSAttributedStringKey NSFontAttributeName;
APPKIT_EXTERN const NSAttributedStringKey NSForegroundColorAttributeName;
