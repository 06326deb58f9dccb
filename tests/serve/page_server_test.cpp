#include "serve/page_server.h"

#include <arpa/inet.h>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace mac_model {
namespace {

using nlohmann::json;

/// A connection that sends what it is told to and reads to the end.
class RawConnection {
  public:
    explicit RawConnection(int port) : socket_(::socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<std::uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const timeval patience{10, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        isOpen_ = ::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }

    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;

    ~RawConnection() { ::close(socket_); }

    void send(std::string_view text) {
        EXPECT_TRUE(isOpen_);
        while (!text.empty()) {
            const auto sent = ::send(socket_, text.data(), text.size(), MSG_NOSIGNAL);
            if (sent <= 0) return; // refused before all was read
            text.remove_prefix(static_cast<std::size_t>(sent));
        }
    }

    std::string readUntil(std::string_view end) {
        std::string text;
        char part[4096];
        while (end.empty() || text.find(end) == std::string::npos) {
            const auto count = ::recv(socket_, part, sizeof part, 0);
            if (count <= 0) break;
            text.append(part, static_cast<std::size_t>(count));
        }
        return text;
    }

  private:
    int socket_;
    bool isOpen_ = false;
};

class PageServerTest : public testing::Test {
  protected:
    PageServerTest() {
        broadcast_.publishAnew({{"pointer", {1, 2}}});
        auto server = PageServer::create(
            0,
            [this](const json& command) {
                ++answered_;
                return json{{"ok", true}, {"did", command["do"]}};
            },
            broadcast_);
        server_ = std::move(*server);
        thread_ = std::thread([this] { server_->run(); });
    }

    ~PageServerTest() override {
        broadcast_.close();
        server_->stop();
        thread_.join();
    }

    std::string host() const { return "127.0.0.1:" + std::to_string(server_->port()); }

    std::string reply(const std::string& request) {
        RawConnection connection(server_->port());
        connection.send(request);
        return connection.readUntil("");
    }

    std::string post(const std::string& body,
                     const std::string& headers = "Content-Type: application/json\r\n") {
        return "POST /command HTTP/1.1\r\nHost: " + host() + "\r\n" + headers +
               "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    }

    std::string get(const std::string& path, const std::string& headers = "") {
        return "GET " + path + " HTTP/1.1\r\nHost: " + host() + "\r\n" + headers + "\r\n";
    }

    Broadcast broadcast_;
    std::atomic<int> answered_ = 0;
    std::unique_ptr<PageServer> server_;
    std::thread thread_;
};

TEST_F(PageServerTest, servesThePageAndCommandsToItself) {
    EXPECT_NE(reply(get("/")).find("<title>Modelled Mac</title>"), std::string::npos);
    EXPECT_NE(reply(get("/modules/main.js", "Origin: http://" + host() + "\r\n")).find("text/javascript"),
              std::string::npos);
    EXPECT_NE(reply(post(R"({"do":"look"})")).find(R"({"did":"look","ok":true})"), std::string::npos);
    EXPECT_EQ(answered_, 1);
}

TEST_F(PageServerTest, refusesWhatIsHostileOrBrokenWithASentence) {
    struct Case {
        const char* name;
        std::string request;
        int status;
        const char* sentence;
    };

    const std::string type = "Content-Type: application/json\r\n";
    const auto withHost = [](const std::string& lines) { return "GET / HTTP/1.1\r\n" + lines + "\r\n"; };
    const std::vector<Case> cases{
        {"foreign host", withHost("Host: rebound.example:80\r\n"), 403, "Only this computer"},
        {"right host, other port", withHost("Host: 127.0.0.1:1\r\n"), 403, "Only this computer"},
        {"no host", withHost(""), 403, "Only this computer"},
        {"two hosts", withHost("Host: " + host() + "\r\nHost: rebound.example\r\n"), 403,
         "Only this computer"},
        {"foreign origin", post(R"({"do":"crash"})", type + "Origin: http://site.example\r\n"), 403,
         "other sites"},
        {"opaque origin", post(R"({"do":"crash"})", type + "Origin: null\r\n"), 403, "other sites"},
        {"secure origin", get("/stream", "Origin: https://" + host() + "\r\n"), 403, "other sites"},
        {"longer host name", get("/", "Origin: http://" + host() + ".site.example\r\n"), 403, "other sites"},
        {"script of another site",
         get("/modules/main.js", "Sec-Fetch-Site: cross-site\r\nSec-Fetch-Dest: script\r\n"), 403,
         "other sites"},
        {"preflight",
         "OPTIONS /command HTTP/1.1\r\nHost: " + host() + "\r\nOrigin: http://site.example\r\n\r\n", 403,
         "other sites"},
        {"form", post("do=crash", "Content-Type: application/x-www-form-urlencoded\r\n"), 415,
         "application/json"},
        {"plain text", post(R"({"do":"crash"})", "Content-Type: text/plain\r\n"), 415, "application/json"},
        {"no type", post(R"({"do":"crash"})", ""), 415, "application/json"},
        {"command by GET", get("/command"), 405, "POST"},
        {"writing a file", "PUT /index.html HTTP/1.1\r\nHost: " + host() + "\r\nContent-Length: 0\r\n\r\n",
         405, "GET"},
        {"deleting", "DELETE /stream HTTP/1.1\r\nHost: " + host() + "\r\n\r\n", 405, "GET"},
        {"unknown path", get("/nothing"), 404, "nothing at this address"},
        {"path upwards", get("/../../../../etc/passwd"), 404, "nothing at this address"},
        {"encoded path upwards", get("/%2e%2e/%2e%2e/etc/passwd"), 404, "nothing at this address"},
        {"path with a zero", get("/index.html%00.js"), 404, "nothing at this address"},
        {"long address", get("/" + std::string(20'000, 'a')), 414, "too long"},
        {"oversized", post("{\"do\":\"" + std::string(PageServer::commandBytesMax, 'x') + "\"}"), 413,
         "at most"},
        {"oversized by its word",
         "POST /command HTTP/1.1\r\nHost: " + host() + "\r\n" + type + "Content-Length: 99999999999\r\n\r\n{",
         413, "at most"},
        {"packed", post("{}", type + "Content-Encoding: br\r\n"), 415, "without an encoding"},
        {"in chunks",
         "POST /command HTTP/1.1\r\nHost: " + host() + "\r\n" + type +
             "Transfer-Encoding: chunked\r\n\r\nFFFFFFF\r\n",
         411, "Content-Length"},
        {"of no length", "POST /command HTTP/1.1\r\nHost: " + host() + "\r\n" + type + "\r\n", 411,
         "Content-Length"},
        {"of two lengths", post("{}", type + "Content-Length: 1\r\n"), 400, "no length"},
        {"of less than nothing",
         "POST /command HTTP/1.1\r\nHost: " + host() + "\r\n" + type + "Content-Length: -1\r\n\r\n", 400,
         "no length"},
        {"a part of a command", post("{}", type + "Range: bytes=0-1\r\n"), 416, "sent whole"},
        {"a file in many parts", get("/", "Range: bytes=0-9,0-9,0-9,0-9\r\n"), 416, "sent whole"},
        {"no JSON", post("{\"do\":"), 400, "no JSON command"},
        {"broken UTF-8", post("{\"do\":\"\xff\xfe\"}"), 400, "no JSON command"},
        {"a key twice", post(R"({"do":"look","do":"crash"})"), 400, "no JSON command"},
        {"deep nesting", post(std::string(100'000, '[')), 400, "no JSON command"},
        {"deep and closed", post(std::string(5000, '[') + std::string(5000, ']')), 400, "no JSON command"},
        {"no object", post("[1]"), 400, "must be an object"},
        {"no name", post("{}"), 400, "must be an object"},
        {"no HTTP", "hello\r\n\r\n", 400, "can't be understood"},
    };
    for (const auto& [name, request, status, sentence] : cases) {
        const auto answer = reply(request);
        EXPECT_TRUE(answer.starts_with("HTTP/1.1 " + std::to_string(status)))
            << name << ": " << answer.substr(0, 400);
        EXPECT_NE(answer.find(sentence), std::string::npos) << name << ": " << answer.substr(0, 400);
        EXPECT_EQ(answer.find("root:"), std::string::npos) << name;
    }
    EXPECT_EQ(answered_, 0);
    EXPECT_NE(reply(post(R"({"do":"look"})")).find("200 OK"), std::string::npos) << "and works on";
}

TEST_F(PageServerTest, neverReadsARefusedBodyAsAnotherRequest) {
    const auto answer =
        reply(post(post(R"({"do":"crash"})"), "Content-Type: text/plain\r\nOrigin: http://site.example\r\n"));
    EXPECT_TRUE(answer.starts_with("HTTP/1.1 403"));
    EXPECT_EQ(answer.find("HTTP/1.1", 8), std::string::npos) << answer;
    EXPECT_EQ(answered_, 0);
}

TEST_F(PageServerTest, streamsTheWholeTreeAndThenDifferencesToEachPage) {
    RawConnection first(server_->port());
    RawConnection second(server_->port());
    for (auto* page : {&first, &second}) {
        page->send(get("/stream"));
        const auto begin = page->readUntil("\n\n\r\n");
        EXPECT_NE(begin.find("event: whole\ndata: {\"sequence\":1,\"state\":{\"pointer\":[1,2]}"),
                  std::string::npos)
            << begin;
    }
    broadcast_.publish({{"pointer", {1, 2}}}, {});
    broadcast_.publish({{"pointer", {3, 2}}}, {{{"kind", "told"}}});
    for (auto* page : {&first, &second}) {
        const auto change = page->readUntil("\n\n\r\n");
        EXPECT_NE(change.find(R"({"difference":{"pointer":[[3,2]]},"sequence":2,"trace":[{"kind":"told"}]})"),
                  std::string::npos)
            << change;
    }
}

TEST_F(PageServerTest, cutsOffTooManyPages) {
    std::vector<std::shared_ptr<Broadcast::Listener>> listeners;
    for (std::size_t i = 0; i < Broadcast::listenersMax; ++i) listeners.push_back(broadcast_.join());
    EXPECT_TRUE(reply(get("/stream")).starts_with("HTTP/1.1 503"));
    broadcast_.leave(listeners.front());
    EXPECT_NE(broadcast_.join(), nullptr);
}

TEST_F(PageServerTest, answersAtOnceBesideConnectionsThatSayNothing) {
    std::vector<std::unique_ptr<RawConnection>> silent;
    for (int i = 0; i < 300; ++i) silent.push_back(std::make_unique<RawConnection>(server_->port()));
    RawConnection slow(server_->port());
    slow.send("POST /command HTTP/1.1\r\nHost: " + host() + "\r\nContent-");
    const auto began = std::chrono::steady_clock::now();
    EXPECT_NE(reply(post(R"({"do":"look"})")).find("200 OK"), std::string::npos);
    EXPECT_NE(reply(get("/")).find("200 OK"), std::string::npos);
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(4));
    EXPECT_EQ(silent.front()->readUntil(""), "") << "the first has given way";
}

TEST_F(PageServerTest, noticesThatAPageHasGone) {
    std::vector<std::shared_ptr<Broadcast::Listener>> others;
    for (std::size_t i = 1; i < Broadcast::listenersMax; ++i) others.push_back(broadcast_.join());
    {
        RawConnection page(server_->port());
        page.send(get("/stream"));
        EXPECT_NE(page.readUntil("event: whole"), "");
        EXPECT_EQ(broadcast_.join(), nullptr);
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(8);
    auto next = broadcast_.join();
    for (; !next && std::chrono::steady_clock::now() < end; next = broadcast_.join())
        std::this_thread::yield();
    EXPECT_NE(next, nullptr) << "there is room for another one";
}

TEST_F(PageServerTest, sendsAFileOnlyWhenItIsAnotherOne) {
    const auto first = reply(get("/icons/page.svg"));
    const auto at = first.find("ETag: ") + 6;
    const auto tag = first.substr(at, first.find("\r\n", at) - at);
    EXPECT_TRUE(reply(get("/icons/page.svg", "If-None-Match: " + tag + "\r\n")).starts_with("HTTP/1.1 304"));
    EXPECT_TRUE(reply(get("/", "If-None-Match: " + tag + "\r\n")).starts_with("HTTP/1.1 200"));
    EXPECT_NE(reply(post(R"({"do":"look"})")).find("Cache-Control: no-store"), std::string::npos);
}

TEST_F(PageServerTest, saysThatAPortIsTaken) {
    const auto second = PageServer::create(server_->port(), nullptr, broadcast_);
    ASSERT_FALSE(second.has_value());
    EXPECT_EQ(second.error(),
              "Port " + std::to_string(server_->port()) +
                  " can't be used; is it taken by another program? Choose another one with --port.");
}

TEST(Broadcast, dropsAListenerThatDoesNotKeepUp) {
    Broadcast broadcast;
    broadcast.publishAnew({{"n", 0}});
    const auto slow = broadcast.join();
    const std::string large(100'000, 'x');
    for (int i = 1; i <= 30; ++i) broadcast.publish({{"n", i}, {"text", large + std::to_string(i)}}, {});
    std::string event;
    EXPECT_EQ(slow->next(event, std::chrono::milliseconds(0)), Broadcast::Listener::Wait::Ended);
    const auto again = broadcast.join();
    EXPECT_EQ(again->next(event, std::chrono::milliseconds(0)), Broadcast::Listener::Wait::Event);
    EXPECT_TRUE(event.starts_with("event: whole\n"));
    EXPECT_EQ(again->next(event, std::chrono::milliseconds(0)), Broadcast::Listener::Wait::Quiet);
}

} // namespace
} // namespace mac_model
