#pragma once

#include <Foundation/NSDictionary.h>

typedef NS_OPTIONS(NSUInteger, NSKeyValueObservingOptions) {
    NSKeyValueObservingOptionNew = 0x01,
};
typedef NSString *NSKeyValueChangeKey NS_STRING_ENUM;

@interface NSObject (NSKeyValueObserving)
- (void)observeValueForKeyPath:(NSString *)path
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id> *)change
                       context:(void *)context;
@end

@interface NSObject (NSKeyValueObserverRegistration)
- (void)addObserver:(NSObject *)observer
         forKeyPath:(NSString *)path
            options:(NSKeyValueObservingOptions)options
            context:(void *)context;
- (void)removeObserver:(NSObject *)observer forKeyPath:(NSString *)path;
@end
