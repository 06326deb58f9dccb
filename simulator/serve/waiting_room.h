#pragma once

#include <cstddef>
#include <deque>
#include <mutex>
#include <thread>

namespace mac_model {

/// The connections whose request hasn't come whole yet, each with a thread of its own. There is room for so
/// many: one more takes the place of the one that has waited longest, so that silence starves nobody. Any
/// thread.
class WaitingRoom {
  public:
    static constexpr std::size_t placesMax = 32;

    /// The calling thread waits for a request on this socket.
    void enter(int socket);
    /// The calling thread waits no longer; call it before the socket is closed.
    void leave();
    /// Hangs up on all who wait, and on all who come.
    void close();

  private:
    struct Waiting {
        std::thread::id thread;
        int socket = -1;
    };

    std::mutex mutex_;
    std::deque<Waiting> waiting_; // the one that came first is in front
    bool isClosed_ = false;
};

} // namespace mac_model
