// The two are constants where they are declared, but can be made only when the runtime knows the classes: so
// their symbols belong to variables of other names.
#import <Foundation/Foundation.h>

extern "C" {
id booleanYes asm("kCFBooleanTrue") = nil;
id booleanNo asm("kCFBooleanFalse") = nil;
}

@interface TavrinBooleans : NSObject
@end

@implementation TavrinBooleans

+ (void)load {
    booleanYes = [[NSNumber alloc] initWithBool:YES];
    booleanNo = [[NSNumber alloc] initWithBool:NO];
}

@end
