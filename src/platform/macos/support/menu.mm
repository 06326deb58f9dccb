#include "platform/macos/support/menu.h"

#include "platform/macos/support/conversions.h"

#include <utility>

using tavrin::Work;
using tavrin::macos::Deliver;

@interface TavrinMenuAction : NSObject
- (instancetype)initWithWork:(Work)work deliver:(Deliver)deliver;
- (void)choose:(id)sender;
@end

@implementation TavrinMenuAction {
    Work work_;
    Deliver deliver_;
}

- (instancetype)initWithWork:(Work)work deliver:(Deliver)deliver {
    if ((self = [super init])) {
        work_ = std::move(work);
        deliver_ = std::move(deliver);
    }
    return self;
}

- (void)choose:(id)sender {
    deliver_(work_);
}

@end

namespace tavrin::macos {

namespace {

NSImage* menuImageOf(const std::vector<std::byte>& png) {
    NSImage* image = [[NSImage alloc] initWithData:[NSData dataWithBytes:png.data() length:png.size()]];
    image.size = NSMakeSize(16, 16);
    return image;
}

NSMenuItem* makeItem(const MenuItem& entry, const Deliver& deliver) {
    if (entry.isSeparator) return [NSMenuItem separatorItem];
    NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:localized(entry.title)
                                                  action:@selector(choose:)
                                           keyEquivalent:toNSString(entry.keyEquivalent)];
    item.enabled = entry.isEnabled;
    if (entry.picture) item.image = menuImageOf(*entry.picture);
    item.state = entry.isChecked ? NSControlStateValueOn : NSControlStateValueOff;
    TavrinMenuAction* action = [[TavrinMenuAction alloc] initWithWork:entry.action deliver:deliver];
    item.target = action;
    item.representedObject = action; // an item doesn't hold its target
    return item;
}

} // namespace

NSMenu* makeMenu(const Menu& menu, const Deliver& deliver) {
    NSMenu* made = [[NSMenu alloc] initWithTitle:@""];
    made.autoenablesItems = NO;
    for (const auto& entry : menu.items) [made addItem:makeItem(entry, deliver)];
    return made;
}

} // namespace tavrin::macos
