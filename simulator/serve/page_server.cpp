#include "serve/page_server.h"

#include "desktop/strict_json.h"
#include "serve/page_files.h"
#include "serve/request_checks.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <httplib.h>
#include <thread>
#include <utility>

namespace mac_model {

namespace {

using httplib::Request;
using httplib::Response;
using nlohmann::json;

constexpr const char* loopback = "127.0.0.1";
constexpr std::size_t threads = Broadcast::listenersMax + 8;
constexpr auto heartbeat = std::chrono::seconds(15); // shows a listener that has gone without a word

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

/// What is a little too long is read and thrown away, so that whoever sent it gets to see the refusal; nobody
/// waits for more.
bool isFarTooLong(const Request& request) {
    constexpr std::size_t digitsMax = 7;
    return request.get_header_value("Content-Length").size() > digitsMax;
}

std::string sentenceFor(int status) {
    switch (status) {
    case 413:
        return "A command has at most " + std::to_string(PageServer::commandBytesMax / 1024) + " KiB.";
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
    }

  private:
    void configure() {
        server_.new_task_queue = [] { return new httplib::ThreadPool(threads); };
        // One request a connection: what a refused request carries is never read as another request.
        server_.set_keep_alive_max_count(1);
        server_.set_payload_max_length(commandBytesMax);
        server_.set_read_timeout(std::chrono::seconds(5));
        server_.set_write_timeout(std::chrono::seconds(2));
        server_.set_tcp_nodelay(true);
        server_.set_default_headers(
            {{"Content-Security-Policy",
              "default-src 'self'; frame-ancestors 'none'; base-uri 'none'; form-action 'none'"},
             {"X-Content-Type-Options", "nosniff"},
             {"Cross-Origin-Resource-Policy", "same-origin"},
             {"Referrer-Policy", "no-referrer"},
             {"Cache-Control", "no-store"}});
        server_.set_pre_routing_handler([this](const Request& request, Response& response) {
            auto refusal = checkOrigin(originOf(request), port_);
            if (!refusal) refusal = checkPlace(request);
            if (!refusal && request.method == "POST")
                refusal = checkContentType(request.get_header_value("Content-Type"));
            if (!refusal && isFarTooLong(request)) refusal = Refusal{413, sentenceFor(413)};
            if (!refusal) return httplib::Server::HandlerResponse::Unhandled;
            refuse(response, *refusal);
            return httplib::Server::HandlerResponse::Handled;
        });
        server_.set_error_handler([](const Request&, Response& response) {
            if (response.body.empty()) refuse(response, {response.status, sentenceFor(response.status)});
        });
        server_.Post("/command",
                     [this](const Request& request, Response& response) { command(request, response); });
        server_.Get("/stream", [this](const Request&, Response& response) { stream(response); });
        server_.Get(".*", [](const Request& request, Response& response) {
            if (const auto* file = fileAt(request.path))
                response.set_content(file->bytes.data(), file->bytes.size(), std::string(file->contentType));
        });
    }

    void command(const Request& request, Response& response) {
        auto parsed = parseStrictJson(request.body);
        if (!parsed)
            return refuse(response,
                          {400, "The request is no JSON command: " + describe(parsed.error()) + "."});
        if (!parsed->is_object() || !parsed->contains("do"))
            return refuse(response, {400, "A command must be an object such as {\"do\": \"look\"}."});
        response.set_content(textOf(answer_(std::move(*parsed))), "application/json");
    }

    void stream(Response& response) {
        auto listener = broadcast_.join();
        if (!listener) return refuse(response, {503, "Too many pages show this Mac already."});
        response.set_chunked_content_provider(
            "text/event-stream",
            [listener](std::size_t, httplib::DataSink& sink) {
                std::string event = ":\n\n"; // a comment, which says nothing
                const auto wait = listener->next(event, heartbeat);
                return wait != Broadcast::Listener::Wait::Ended && sink.write(event.data(), event.size());
            },
            [this, listener](bool) { broadcast_.leave(listener); });
    }

    httplib::Server server_;
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
