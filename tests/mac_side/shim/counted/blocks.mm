// Blocks as objects, over the blocks' own runtime.
#include <Block.h>
#import <Foundation/Foundation.h>

@interface TavrinBlock : NSObject
@end

@implementation TavrinBlock

- (id)retain {
    return (id)_Block_copy(self);
}

- (oneway void)release {
    _Block_release(self);
}

- (id)copy {
    return (id)_Block_copy(self);
}

- (id)copyWithZone:(NSZone*)zone {
    return (id)_Block_copy(self);
}

- (id)autorelease {
    [NSAutoreleasePool addObject:self];
    return self;
}

@end

// The linker gives _NSConcreteStackBlock and its like these classes.
@interface TavrinStackBlock : TavrinBlock
@end
@implementation TavrinStackBlock
@end

@interface TavrinMallocBlock : TavrinBlock
@end
@implementation TavrinMallocBlock
@end

@interface TavrinGlobalBlock : TavrinBlock
@end
@implementation TavrinGlobalBlock
@end

extern "C" id objc_retainBlock(id block) { return block ? (id)_Block_copy(block) : nil; }
