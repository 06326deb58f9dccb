#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace mac_model {

/// An answer other than 200, with a sentence for whoever reads it.
struct Refusal {
    int status = 400;
    std::string sentence;
};

/// What decides whether a request comes from the page itself (or from a program on this computer) and not
/// from another site that the browser also shows.
struct RequestOrigin {
    std::vector<std::string> hosts;   // all Host headers
    std::vector<std::string> origins; // all Origin headers
    std::string site;                 // Sec-Fetch-Site; empty when the browser is none
    std::string destination;          // Sec-Fetch-Dest
};

/// A site whose name was made to point at this computer betrays itself by Host, a page of another origin by
/// Origin.
std::optional<Refusal> checkOrigin(const RequestOrigin&, int port);

/// Commands must say that they are JSON: no form of another site can, without asking first.
std::optional<Refusal> checkContentType(const std::string& contentType);

/// How a request's body is said to come; texts are empty where nothing is said.
struct RequestBody {
    bool isCommand = false;
    std::vector<std::string> lengths; // all Content-Length headers
    std::string transferEncoding;
    std::string contentEncoding;
    std::string range;
};

/// A body comes as it is, whole, and with its length said beforehand, so that its limit holds before any of
/// it is read.
std::optional<Refusal> checkBody(const RequestBody&, std::size_t bytesMax);

std::string sentenceForTooLong(std::size_t bytesMax);

} // namespace mac_model
