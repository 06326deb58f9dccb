#include "platform/macos/system/visibility_service.h"

#include "platform/macos/support/conversions.h"
#include "platform/macos/support/main_thread.h"

#include <dlfcn.h>
#include <optional>
#include <utility>

// The classes stand in no header of Apple's and are never linked: they are looked up by name, and these
// protocols give the messages to them their types.

@protocol TavrinAssessmentConfiguration
- (instancetype)initWithAllowedSystemItems:(NSArray*)systemItems allowedBundleIdentifiers:(NSArray*)bundles;
@end

@protocol TavrinAssessmentAssertion
- (void)activateWithConfiguration:(id)configuration completionHandler:(void (^)(NSError*))handler;
- (void)invalidate;
@end

namespace tavrin::macos {

namespace {

constexpr const char* frameworkPath =
    "/System/Library/PrivateFrameworks/MenuBarClientCore.framework/MenuBarClientCore";

struct ClassPair {
    Class configuration = Nil;
    Class assertion = Nil;
};

bool answersAll(const ClassPair& pair) {
    return [pair.configuration instancesRespondToSelector:@selector(initWithAllowedSystemItems:
                                                                      allowedBundleIdentifiers:)] &&
           [pair.assertion instancesRespondToSelector:@selector(activateWithConfiguration:
                                                                        completionHandler:)] &&
           [pair.assertion instancesRespondToSelector:@selector(invalidate)];
}

std::optional<ClassPair> lookUpClasses() {
    if (!dlopen(frameworkPath, RTLD_LAZY)) return std::nullopt;
    const ClassPair pair{NSClassFromString(@"MBAssessmentModeConfiguration"),
                         NSClassFromString(@"MBAssessmentModeAssertion")};
    if (!pair.configuration || !pair.assertion || !answersAll(pair)) return std::nullopt;
    return pair;
}

/// The same for the life of the process, also when they are missing.
const std::optional<ClassPair>& classes() {
    static const auto found = lookUpClasses();
    return found;
}

NSArray* numbers(std::span<const int> values) {
    NSMutableArray* array = [NSMutableArray arrayWithCapacity:values.size()];
    for (const int value : values) [array addObject:@(value)];
    return array;
}

NSArray* texts(std::span<const std::string> values) {
    NSMutableArray* array = [NSMutableArray arrayWithCapacity:values.size()];
    for (const auto& value : values) [array addObject:toNSString(value)];
    return array;
}

class MacVisibilityAssertion final : public VisibilityAssertion {
  public:
    MacVisibilityAssertion(id configuration, id<TavrinAssessmentAssertion> assertion)
        : configuration_(configuration)
        , assertion_(assertion) {}

    MacVisibilityAssertion(const MacVisibilityAssertion&) = delete;
    MacVisibilityAssertion& operator=(const MacVisibilityAssertion&) = delete;

    ~MacVisibilityAssertion() override { end(); }

    /// The framework keeps the block for as long as it likes, so it holds the answer and nothing else.
    void activate(Answer answer) override {
        assertMainThread();
        [assertion_ activateWithConfiguration:configuration_
                            completionHandler:^(NSError* error) {
                                answer(error ? std::optional(toString(error.description)) : std::nullopt);
                            }];
        isActivated_ = true;
        configuration_ = nil;
    }

    void invalidate() override { end(); }

  private:
    void end() {
        assertMainThread();
        if (isActivated_) [assertion_ invalidate];
        assertion_ = nil;
        configuration_ = nil;
    }

    id configuration_;
    id<TavrinAssessmentAssertion> assertion_;
    bool isActivated_ = false; // nobody has said what the end of another one does
};

} // namespace

bool MacVisibilityService::isAvailable() {
    assertMainThread();
    return classes().has_value();
}

std::unique_ptr<VisibilityAssertion>
MacVisibilityService::make(std::span<const int> systemItems, std::span<const std::string> bundleIdentifiers) {
    if (!isAvailable()) return nullptr;
    @autoreleasepool {
        const id configuration = [(id<TavrinAssessmentConfiguration>)[classes()->configuration alloc]
            initWithAllowedSystemItems:numbers(systemItems)
              allowedBundleIdentifiers:texts(bundleIdentifiers)];
        const id assertion = [[classes()->assertion alloc] init];
        if (!configuration || !assertion) return nullptr;
        return std::make_unique<MacVisibilityAssertion>(configuration, assertion);
    }
}

} // namespace tavrin::macos
