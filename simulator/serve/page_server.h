#pragma once

#include "serve/broadcast.h"

#include <expected>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

namespace mac_model {

/// The loopback page: its files, the stream of what the Mac shows, and the way in for commands
/// (docs/page.md). Nobody but programs on this computer and the page itself gets an answer other than a
/// refusal.
class PageServer {
  public:
    static constexpr std::size_t commandBytesMax = 256 * 1024;

    /// Runs one command and gives its reply; called on threads of the server, several at once.
    using Answer = std::function<nlohmann::json(nlohmann::json)>;

    /// Port 0 takes any free port. The error is one sentence: the port can't be had.
    static std::expected<std::unique_ptr<PageServer>, std::string> create(int port, Answer, Broadcast&);

    virtual ~PageServer() = default;
    virtual int port() const = 0;
    /// Serves until `stop`. The thread that calls it belongs to the server until then.
    virtual void run() = 0;
    /// Any thread. Close the broadcast first: listeners would be waited for.
    virtual void stop() = 0;
};

} // namespace mac_model
