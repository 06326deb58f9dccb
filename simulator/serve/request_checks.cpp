#include "serve/request_checks.h"

#include "base/ascii.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <string_view>

namespace mac_model {

namespace {

bool isOwnHost(const std::string& host, int port) {
    constexpr std::array<std::string_view, 3> names{"127.0.0.1", "localhost", "[::1]"};
    return std::ranges::any_of(
        names, [&](std::string_view name) { return host == std::string(name) + ":" + std::to_string(port); });
}

bool isOwnOrigin(const std::string& origin, int port) {
    constexpr std::string_view scheme = "http://";
    return origin.starts_with(scheme) && isOwnHost(origin.substr(scheme.size()), port);
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::optional<std::size_t> numberIn(const std::string& text) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc::result_out_of_range) return SIZE_MAX;
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<Refusal> checkLength(const RequestBody& body, std::size_t bytesMax) {
    if (body.lengths.empty() && !body.isCommand) return std::nullopt;
    if (body.lengths.empty()) return Refusal{411, "A command says its Content-Length."};
    const auto length = body.lengths.size() == 1 ? numberIn(body.lengths.front()) : std::nullopt;
    if (!length) return Refusal{400, "The Content-Length is no length."};
    if (*length > bytesMax) return Refusal{413, sentenceForTooLong(bytesMax)};
    return std::nullopt;
}

} // namespace

std::optional<Refusal> checkOrigin(const RequestOrigin& request, int port) {
    if (request.hosts.size() != 1 || !isOwnHost(request.hosts.front(), port))
        return Refusal{403, "Only this computer may ask, by the address 127.0.0.1 or localhost."};
    for (const auto& origin : request.origins)
        if (!isOwnOrigin(origin, port)) return Refusal{403, "Pages of other sites may not ask."};
    const bool isFollowedLink = request.destination == "document";
    if ((request.site == "cross-site" || request.site == "same-site") && !isFollowedLink)
        return Refusal{403, "Pages of other sites may not ask."};
    return std::nullopt;
}

std::optional<Refusal> checkContentType(const std::string& contentType) {
    const auto type = trimmed(contentType.substr(0, contentType.find(';')));
    if (tavrin::lowercasedAscii(type) == "application/json") return std::nullopt;
    return Refusal{415, "A command is sent as application/json."};
}

std::optional<Refusal> checkBody(const RequestBody& body, std::size_t bytesMax) {
    if (!body.range.empty()) return Refusal{416, "What is at this address is only sent whole."};
    if (!body.contentEncoding.empty())
        return Refusal{415, "A command is sent as it is, without an encoding."};
    if (!body.transferEncoding.empty())
        return Refusal{411, "A command is sent whole, with its Content-Length."};
    return checkLength(body, bytesMax);
}

std::string sentenceForTooLong(std::size_t bytesMax) {
    return "A command has at most " + std::to_string(bytesMax / 1024) + " KiB.";
}

} // namespace mac_model
