#include "serve/page_server.h"

#include "desktop/strict_json.h"
#include "serve/bounded_server.h"
#include "serve/page_files.h"
#include "serve/request_checks.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <httplib.h>
#include <thread>
#include <utility>

namespace mac_model {

namespace {

using httplib::Request;
using httplib::Response;
using nlohmann::json;

constexpr const char* loopback = "127.0.0.1";
constexpr std::chrono::milliseconds lookInterval{500}; // at whether a page has gone
constexpr int looksToHeartbeat = 30;                   // shows a page that has gone without a word

std::string textOf(const json& value) { return value.dump(-1, ' ', false, json::error_handler_t::replace); }

void refuse(Response& response, const Refusal& refusal) {
    response.status = refusal.status;
    response.set_content(textOf({{"ok", false}, {"error", refusal.sentence}}), "application/json");
}

std::vector<std::string> headersNamed(const Request& request, const char* name) {
    std::vector<std::string> values;
    for (std::size_t i = 0; i < request.get_header_value_count(name); ++i)
        values.push_back(request.get_header_value(name, i));
    return values;
}

RequestOrigin originOf(const Request& request) {
    return {.hosts = headersNamed(request, "Host"),
            .origins = headersNamed(request, "Origin"),
            .site = request.get_header_value("Sec-Fetch-Site"),
            .destination = request.get_header_value("Sec-Fetch-Dest")};
}

const PageFile* fileAt(std::string_view path) {
    const auto files = pageFiles();
    const auto found = std::ranges::find(files, path == "/" ? "index.html" : path.substr(1), &PageFile::path);
    return found == files.end() ? nullptr : &*found;
}

std::optional<Refusal> checkPlace(const Request& request) {
    const bool isCommand = request.path == "/command";
    if (!isCommand && request.path != "/stream" && !fileAt(request.path))
        return Refusal{404, "There is nothing at this address."};
    const bool isRead = request.method == "GET" || (request.method == "HEAD" && request.path != "/stream");
    if (isCommand && request.method != "POST") return Refusal{405, "Commands are sent with POST."};
    if (!isCommand && !isRead) return Refusal{405, "This address is only read, with GET."};
    return std::nullopt;
}

/// A browser keeps the file, and asks each time whether it is still the same.
void sendFile(const PageFile& file, const Request& request, Response& response) {
    const auto tag = '"' + std::to_string(std::hash<std::string_view>{}(file.bytes)) + '"';
    response.set_header("ETag", tag);
    response.set_header("Cache-Control", "no-cache");
    if (request.get_header_value("If-None-Match") == tag)
        response.status = 304;
    else
        response.set_content(file.bytes.data(), file.bytes.size(), std::string(file.contentType));
}

RequestBody bodyOf(const Request& request) {
    return {.isCommand = request.method == "POST",
            .lengths = headersNamed(request, "Content-Length"),
            .transferEncoding = request.get_header_value("Transfer-Encoding"),
            .contentEncoding = request.get_header_value("Content-Encoding"),
            .range = request.get_header_value("Range")};
}

std::optional<Refusal> check(const Request& request, int port) {
    if (auto refusal = checkOrigin(originOf(request), port)) return refusal;
    if (auto refusal = checkPlace(request)) return refusal;
    if (request.method == "POST")
        if (auto refusal = checkContentType(request.get_header_value("Content-Type"))) return refusal;
    return checkBody(bodyOf(request), PageServer::commandBytesMax);
}

/// Sends what happens to one page, until it has gone.
class EventStream {
  public:
    explicit EventStream(std::shared_ptr<Broadcast::Listener> listener) : listener_(std::move(listener)) {}

    /// Waits for one event at most; false when there is nothing more to send.
    bool sendNext(httplib::DataSink& sink) {
        std::string event;
        const auto wait = listener_->next(event, lookInterval);
        if (wait == Broadcast::Listener::Wait::Ended || !sink.is_writable()) return false;
        looks_ = wait == Broadcast::Listener::Wait::Quiet ? looks_ + 1 : 0;
        if (looks_ == looksToHeartbeat) event = ":\n\n"; // a comment, which says nothing
        looks_ %= looksToHeartbeat;
        return event.empty() || sink.write(event.data(), event.size());
    }

  private:
    std::shared_ptr<Broadcast::Listener> listener_;
    int looks_ = 0; // in vain, since something was sent
};

std::string sentenceFor(int status) {
    switch (status) {
    case 413:
        return sentenceForTooLong(PageServer::commandBytesMax);
    case 414:
        return "The address is too long.";
    case 500:
        return "The request couldn't be carried out.";
    default:
        return "The request can't be understood.";
    }
}

class LoopbackServer final : public PageServer {
  public:
    LoopbackServer(Answer answer, Broadcast& broadcast) : answer_(std::move(answer)), broadcast_(broadcast) {}

    bool bind(int port) {
        configure();
        // The library's own choice would let a second server share the port unnoticed.
        server_.set_socket_options([](socket_t socket) {
            const int on = 1;
            ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        });
        port_ = port;
        if (port == 0)
            port_ = server_.bind_to_any_port(loopback);
        else if (!server_.bind_to_port(loopback, port))
            return false;
        server_.growQueue();
        return port_ > 0;
    }

    int port() const override { return port_; }

    void run() override {
        server_.listen_after_bind();
        hasRun_ = true;
    }

    void stop() override {
        // Before it runs, the library would forget that it was told to stop.
        while (!server_.is_running() && !hasRun_) std::this_thread::yield();
        server_.stop();
        server_.hangUpOnWaiting();
    }

  private:
    void configure() {
        server_.set_payload_max_length(commandBytesMax);
        server_.set_default_headers(
            {{"Content-Security-Policy",
              "default-src 'self'; img-src 'self' data:; frame-ancestors 'none'; base-uri 'none'; form-action 'none'"},
             {"X-Content-Type-Options", "nosniff"},
             {"Cross-Origin-Resource-Policy", "same-origin"},
             {"Referrer-Policy", "no-referrer"}});
        server_.set_pre_routing_handler([this](const Request& request, Response& response) {
            const auto refusal = check(request, port_);
            if (!refusal) return httplib::Server::HandlerResponse::Unhandled;
            refuse(response, *refusal);
            return httplib::Server::HandlerResponse::Handled;
        });
        server_.set_post_routing_handler([](const Request&, Response& response) {
            if (!response.has_header("Cache-Control")) response.set_header("Cache-Control", "no-store");
        });
        server_.set_error_handler([](const Request&, Response& response) {
            if (response.body.empty()) refuse(response, {response.status, sentenceFor(response.status)});
        });
        server_.Post("/command",
                     [this](const Request& request, Response& response) { command(request, response); });
        server_.Get("/stream", [this](const Request&, Response& response) { stream(response); });
        server_.Get(".*", [](const Request& request, Response& response) {
            if (const auto* file = fileAt(request.path)) sendFile(*file, request, response);
        });
    }

    void command(const Request& request, Response& response) {
        auto parsed = parseStrictJson(request.body);
        if (!parsed)
            return refuse(response,
                          {400, "The request is no JSON command: " + describe(parsed.error()) + "."});
        if (!parsed->is_object() || !parsed->contains("do"))
            return refuse(response, {400, "A command must be an object such as {\"do\": \"look\"}."});
        server_.requestIsRead();
        response.set_content(textOf(answer_(std::move(*parsed))), "application/json");
    }

    void stream(Response& response) {
        auto listener = broadcast_.join();
        if (!listener) return refuse(response, {503, "Too many pages show this Mac already."});
        server_.requestIsRead();
        auto events = std::make_shared<EventStream>(listener);
        response.set_chunked_content_provider(
            "text/event-stream",
            [events](std::size_t, httplib::DataSink& sink) { return events->sendNext(sink); },
            [this, listener](bool) { broadcast_.leave(listener); });
    }

    BoundedServer server_;
    Answer answer_;
    Broadcast& broadcast_;
    int port_ = 0;
    std::atomic<bool> hasRun_ = false;
};

} // namespace

std::expected<std::unique_ptr<PageServer>, std::string> PageServer::create(int port, Answer answer,
                                                                           Broadcast& broadcast) {
    auto server = std::make_unique<LoopbackServer>(std::move(answer), broadcast);
    if (!server->bind(port))
        return std::unexpected("Port " + std::to_string(port) +
                               " can't be used; is it taken by another program? "
                               "Choose another one with --port.");
    return server;
}

} // namespace mac_model
