#pragma once

#include <Foundation/Foundation.h>

typedef NSString *NSFontTextStyle;
typedef NSString *NSFontTextStyleOptionKey;
APPKIT_EXTERN const NSFontTextStyle NSFontTextStyleBody;
APPKIT_EXTERN const NSFontTextStyle NSFontTextStyleSubheadline;
APPKIT_EXTERN const NSFontTextStyle NSFontTextStyleTitle1;
APPKIT_EXTERN const NSFontTextStyle NSFontTextStyleTitle3;

typedef CGFloat NSFontWeight;
APPKIT_EXTERN const NSFontWeight NSFontWeightRegular;
APPKIT_EXTERN const NSFontWeight NSFontWeightSemibold;
APPKIT_EXTERN const NSFontWeight NSFontWeightBold;
