#include "seam_check/page_for_the_eyes.h"

namespace tavrin::seam_check {

std::string_view pageForTheEyes() {
    return "Only eyes can tell the rest. Start Tavrin itself, and write yes or no behind each:\n"
           "  1. The control's symbol is sharp, and dark on a light menu bar, light on a dark one.\n"
           "  2. While its popover is open, the control is highlighted, and the popover's arrow points at it.\n"
           "  3. A click on the empty menu bar, where hidden items were, highlights nothing.\n"
           "  4. Hiding and revealing move the items at once, without a flicker of the whole menu bar.\n"
           "  5. While an item is moved by “Apply and Hide”, the pointer jumps at most for a moment and comes "
           "back.\n"
           "  6. The notice below the control has round corners and lets the desktop shine through.\n"
           "  7. Windows, popovers and alerts follow a change between light and dark at once.\n"
           "  8. With Reduce Motion nothing slides or glows.\n"
           "  9. VoiceOver reads the control, says whether items are hidden, and opens its menu.\n"
           " 10. Over a full-screen application the shortcut still hides and reveals, as the bar shows when it "
           "slides in.\n"
           " 11. With two displays a click on the second one's menu bar opens the popover there.\n"
           " 12. After a settings window has closed, the keys go to the application that had them before.\n";
}

} // namespace tavrin::seam_check
