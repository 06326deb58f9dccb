#include "answering_mac.h"

#include "platform/accessibility.h"

#import <Foundation/Foundation.h>

namespace {

const tavrin::Platform* answering = nullptr;

void tellOfTrust() {
    [NSDistributedNotificationCenter.defaultCenter postNotificationName:@"com.apple.accessibility.api"
                                                                 object:nil];
}

} // namespace

const tavrin::Platform* answeringMac() { return answering; }

AnswersFrom::AnswersFrom(const tavrin::Platform& mac)
    : mac_(mac)
    , trustNotices_(mac.accessibility.onTrustListChanged(tellOfTrust)) {
    answering = &mac_;
}

AnswersFrom::~AnswersFrom() {
    if (answering == &mac_) answering = nullptr;
}
