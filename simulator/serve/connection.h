#pragma once

#include <chrono>
#include <cstddef>
#include <httplib.h>
#include <string>

namespace mac_model {

/// One connection to the page server, for one request. What it sends is bounded in time and size, however it
/// sends it: bytes beyond either bound never come. The thread that made it.
class Connection final : public httplib::Stream {
  public:
    static constexpr std::chrono::seconds requestTimeMax{5};     // until the whole request is there
    static constexpr std::size_t requestBytesMax = 320 * 1024;   // with all its headers
    static constexpr std::chrono::seconds writeTimeMax{2};       // without any progress
    static constexpr std::chrono::milliseconds partingTime{500}; // for a sender to see the answer
    static constexpr std::size_t partingBytesMax = 1024 * 1024;

    /// The caller closes the socket.
    explicit Connection(int socket) : socket_(socket) {}

    bool is_readable() const override;
    /// False also when the other side has hung up.
    bool is_writable() const override;
    ssize_t read(char* to, std::size_t size) override;
    ssize_t write(const char* from, std::size_t size) override;
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;

    int socket() const override { return socket_; }

    /// Says that no more will be written, and takes what the other side was still sending: closing at once
    /// would make its system throw the answer away.
    void part();

  private:
    using Clock = std::chrono::steady_clock;

    bool receive();
    bool waitUntil(Clock::time_point deadline, short events) const;

    int socket_;
    Clock::time_point deadline_ = Clock::now() + requestTimeMax;
    std::string received_;
    std::size_t taken_ = 0;                   // of what was received last
    std::size_t bytesLeft_ = requestBytesMax; // that may still come
};

} // namespace mac_model
