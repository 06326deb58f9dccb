#include "seam_check/check.h"

#include <utility>

namespace tavrin::seam_check {

namespace {

Task<Verdict> atOnce(Look look, Platform platform) { co_return look(platform); }

} // namespace

Check reads(std::string_view family, std::string_view promise, Look look) {
    return {family, promise, Effect::Reads, [look](Platform platform) { return atOnce(look, platform); }};
}

Check reads(std::string_view family, std::string_view promise, LongLook look) {
    return {family, promise, Effect::Reads, std::move(look)};
}

Check changes(std::string_view family, std::string_view promise, LongLook look) {
    return {family, promise, Effect::Changes, std::move(look)};
}

Check asks(std::string_view family, std::string_view promise, LongLook look) {
    return {family, promise, Effect::Asks, std::move(look)};
}

} // namespace tavrin::seam_check
