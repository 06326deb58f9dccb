#pragma once

#include <Foundation/Foundation.h>

typedef NSString *NSUserInterfaceItemIdentifier;

@protocol NSUserInterfaceItemIdentification
@property (copy) NSUserInterfaceItemIdentifier identifier;
@end
