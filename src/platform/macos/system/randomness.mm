#include "platform/macos/system/randomness.h"

#include <stdlib.h>

namespace tavrin::macos {

std::uint64_t MacRandomness::number() {
    std::uint64_t number = 0;
    arc4random_buf(&number, sizeof number);
    return number;
}

} // namespace tavrin::macos
