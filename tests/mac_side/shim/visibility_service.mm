// The private classes by which macOS 27 hides items, answered by the modelled Mac.
#include "platform/visibility_service.h"

#include "answering_mac.h"

#import <Foundation/Foundation.h>
#include <dlfcn.h>
#include <memory>
#include <string>
#include <vector>

/// The framework is there; nothing else is opened here.
extern "C" void* tavrinOpened(const char* path, int) noexcept {
    static int opened;
    return std::string(path).ends_with("/MenuBarClientCore") ? &opened : nullptr;
}

@interface MBAssessmentModeConfiguration : NSObject {
  @public
    std::vector<int> systemItems_;
    std::vector<std::string> bundles_;
}
- (instancetype)initWithAllowedSystemItems:(NSArray*)systemItems allowedBundleIdentifiers:(NSArray*)bundles;
@end

@implementation MBAssessmentModeConfiguration

- (instancetype)initWithAllowedSystemItems:(NSArray*)systemItems allowedBundleIdentifiers:(NSArray*)bundles {
    if ((self = [super init])) {
        for (NSNumber* item in systemItems) systemItems_.push_back(item.intValue);
        for (NSString* bundle in bundles) bundles_.emplace_back(bundle.UTF8String);
    }
    return self;
}

@end

/// Describes itself by the words of the Mac that answers.
@interface TavrinWordedError : NSError
@end

@implementation TavrinWordedError

- (NSString*)description {
    return self.domain;
}

@end

@interface MBAssessmentModeAssertion : NSObject
- (void)activateWithConfiguration:(id)configuration completionHandler:(void (^)(NSError*))handler;
- (void)invalidate;
@end

@implementation MBAssessmentModeAssertion {
    std::unique_ptr<tavrin::VisibilityAssertion> made_;
}

- (void)activateWithConfiguration:(id)configuration completionHandler:(void (^)(NSError*))handler {
    auto* wanted = static_cast<MBAssessmentModeConfiguration*>(configuration);
    if (answeringMac())
        made_ = answeringMac()->visibilityService.make(wanted->systemItems_, wanted->bundles_);
    if (!made_) return;
    made_->activate([handler](const std::optional<std::string>& error) {
        NSString* words = error ? [NSString stringWithUTF8String:error->c_str()] : nil;
        handler(words ? [TavrinWordedError errorWithDomain:words code:1 userInfo:nil] : nil);
    });
}

- (void)invalidate {
    made_.reset();
}

@end
