#include "serve/connection.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>

namespace mac_model {

namespace {

constexpr std::size_t portionBytes = 16 * 1024;

} // namespace

/// Whether one of the events came, or the end of the connection.
bool Connection::waitUntil(Clock::time_point deadline, short events) const {
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        pollfd waiting{socket_, events, 0};
        const int came = ::poll(&waiting, 1, static_cast<int>(std::max<long>(0, left)));
        if (came >= 0 || errno != EINTR) return came > 0;
    }
}

bool Connection::is_readable() const { return taken_ < received_.size() || waitUntil(deadline_, POLLIN); }

bool Connection::is_writable() const {
    pollfd asked{socket_, POLLOUT | POLLRDHUP, 0};
    return ::poll(&asked, 1, 0) == 0 || (asked.revents & (POLLRDHUP | POLLHUP | POLLERR)) == 0;
}

bool Connection::receive() {
    received_.resize(std::min(portionBytes, bytesLeft_));
    taken_ = 0;
    const bool mayCome = !received_.empty() && waitUntil(deadline_, POLLIN);
    const auto count = mayCome ? ::recv(socket_, received_.data(), received_.size(), MSG_DONTWAIT) : -1;
    received_.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    bytesLeft_ -= received_.size();
    return !received_.empty();
}

ssize_t Connection::read(char* to, std::size_t size) {
    if (taken_ == received_.size() && !receive()) return -1;
    const auto count = std::min(size, received_.size() - taken_);
    std::memcpy(to, received_.data() + taken_, count);
    taken_ += count;
    return static_cast<ssize_t>(count);
}

ssize_t Connection::write(const char* from, std::size_t size) {
    if (!waitUntil(Clock::now() + writeTimeMax, POLLOUT)) return -1;
    return ::send(socket_, from, size, MSG_NOSIGNAL | MSG_DONTWAIT);
}

// Everyone is on this computer.
void Connection::get_remote_ip_and_port(std::string& ip, int&) const { ip = "127.0.0.1"; }

void Connection::get_local_ip_and_port(std::string& ip, int&) const { ip = "127.0.0.1"; }

void Connection::part() {
    ::shutdown(socket_, SHUT_WR);
    deadline_ = Clock::now() + partingTime;
    bytesLeft_ = partingBytesMax;
    while (receive()) {
    }
}

} // namespace mac_model
