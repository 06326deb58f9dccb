#pragma once

#include <Foundation/Foundation.h>

@interface NSDraggingSession : NSObject
@end
